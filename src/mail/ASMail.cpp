#include "mail/ASMail.h"

#include "mail/ASMailHost.h"

#include <QCoreApplication>
#include <QFile>
#include <QJSEngine>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>

namespace kest {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

Q_LOGGING_CATEGORY(mailScript, "kest.mail.script")

namespace {

// After the first paint of the window.
constexpr auto idleDelay = 400ms;

MailScript &scriptOfAll()
{
    static MailScript script;
    return script;
}

QString dataHome()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

QJSValue numberObject(QJSEngine &engine, quint64 number)
{
    return engine.toScriptValue(static_cast<double>(number));
}

} // namespace

void ASMail::loadScriptObjects()
{
    scriptOfAll() = findMailScript(dataHome());
}

ASMail::ASMail(MailTransport &transport, AlertPresenter &alertPresenter, QObject *parent)
    : ASMail(transport, alertPresenter, QString(), parent)
{
    m_script = scriptOfAll();
}

ASMail::ASMail(MailTransport &transport, AlertPresenter &alertPresenter, const QString &script, QObject *parent)
    : QObject(parent)
    , m_alertPresenter(alertPresenter)
    , m_mailApp(transport)
    , m_script{script, {}}
{
    QTimer::singleShot(idleDelay, this, &ASMail::prepare);
}

ASMail::~ASMail() = default;

void ASMail::prepare()
{
    if (m_engine)
        return;
    if (m_script.path.isEmpty())
        m_script = findMailScript(dataHome());
    m_engine = std::make_unique<QJSEngine>();
    auto *host = new ASMailHost(m_alertPresenter, m_engine.get());
    QJSEngine::setObjectOwnership(&m_mailApp, QJSEngine::CppOwnership);
    QJSEngine::setObjectOwnership(host, QJSEngine::CppOwnership);
    const QJSValue hostObject = m_engine->newQObject(host);
    QJSValue exports = m_engine->newObject();
    exports.setProperty(u"mailApp"_s, m_engine->newQObject(&m_mailApp));
    exports.setProperty(u"displayAlert"_s, hostObject.property(u"displayAlert"_s));
    exports.setProperty(u"log"_s, hostObject.property(u"log"_s));
    m_engine->registerModule(u"kest"_s, exports);
    m_module = importScript();
}

// The engine reads modules from files only, so a text that was judged goes into one that is nobody else's.
QJSValue ASMail::importScript()
{
    if (m_script.text.isEmpty())
        return m_engine->importModule(m_script.path);
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"ASMail.mjs"_s));
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly) && file.write(m_script.text) == m_script.text.size())
        file.close();
    return m_engine->importModule(file.fileName());
}

void ASMail::mailNewMessageWithSubject(const QString &subject, const QString &withBody,
                                       const std::optional<QVariantList> &withAttachments, quint64 insertionIndex,
                                       const QString &accountName)
{
    prepare();
    run(u"mailNewMessageWithSubject"_s,
        {subject, withBody, arrayOrNull(withAttachments), numberObject(*m_engine, insertionIndex), accountName});
}

void ASMail::mailReplyAppendingBodyText(const QString &bodyText, const std::optional<QVariantList> &withAttachments,
                                        const Flags &flags, quint64 insertionIndex, const QString &accountName)
{
    prepare();
    run(u"mailReplyAppendingBodyText"_s,
        {bodyText, arrayOrNull(withAttachments), flags.withReplyAll, flags.sendingReply, flags.deletingOriginal,
         numberObject(*m_engine, insertionIndex), accountName});
}

QString ASMail::mailReplyGetSender()
{
    const QJSValue sender = run(u"mailReplyGetSender"_s, {});
    if (!sender.isString())
        return {};
    // The engine makes a null text of an empty one; null is kept for "none".
    const QString text = sender.toString();
    return text.isNull() ? u""_s : text;
}

std::optional<QStringList> ASMail::retrieveEmailAccounts()
{
    const QJSValue names = run(u"retrieveEmailAccounts"_s, {});
    if (!names.isArray())
        return std::nullopt;
    return names.toVariant().toStringList();
}

QJSValue ASMail::run(const QString &operation, const QJSValueList &arguments)
{
    prepare();
    if (m_module.isError()) {
        tell(QCoreApplication::translate("kest", "The mail script could not be loaded."), m_module);
        return {};
    }
    const QJSValue function = m_module.property(operation);
    if (!function.isCallable()) {
        tell(QCoreApplication::translate("kest", "The mail script lacks the operation %1.").arg(operation), {});
        return {};
    }
    const QJSValue result = function.call(arguments);
    if (!result.isError())
        return result;
    tell(QCoreApplication::translate("kest", "The mail script failed."), result);
    return {};
}

QJSValue ASMail::arrayOrNull(const std::optional<QVariantList> &list)
{
    return list ? m_engine->toScriptValue(*list) : QJSValue(QJSValue::NullValue);
}

void ASMail::tell(const QString &words, const QJSValue &exception)
{
    const QString reason = exception.isError() ? exception.toString() : QString();
    qCWarning(mailScript).noquote() << words << reason << "line" << exception.property(u"lineNumber"_s).toInt();
    m_alertPresenter.runModal({words, reason, {QCoreApplication::translate("kest", "OK")}, AlertContent::Style::Warning});
}

} // namespace kest
