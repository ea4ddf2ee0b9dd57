#include "mail/ASMail.h"

#include "mail/ASMailHost.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace kest {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(mailScript, "kest.mail.script")

namespace {

MailScript &scriptOfAll()
{
    static MailScript script;
    return script;
}

QString dataHome()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

/// Numbers are doubles in a script.
QVariant numberObject(quint64 number)
{
    return static_cast<double>(number);
}

QVariant arrayOrNull(const std::optional<QVariantList> &list)
{
    return list ? QVariant(*list) : QVariant::fromValue(nullptr);
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

ASMail::ASMail(MailTransport &transport, AlertPresenter &alertPresenter, const QString &script, QObject *parent,
               const QByteArray &pluginFile)
    : QObject(parent)
    , m_alertPresenter(alertPresenter)
    , m_mailApp(transport)
    , m_script{script, {}}
    , m_loader(pluginFile)
{
}

ASMail::~ASMail() = default;

bool ASMail::prepare()
{
    if (m_engine)
        return true;
    QString problem;
    ScriptPlugin *plugin = m_loader.load(&problem);
    if (!plugin) {
        tell(QCoreApplication::translate("kest", "The part of Kest that prepares mail could not be loaded. Please install "
                                                 "Kest again."),
             {{problem, 0}});
        return false;
    }
    if (m_script.path.isEmpty())
        m_script = findMailScript(dataHome());
    auto *host = new ASMailHost(m_alertPresenter, this);
    m_engine = plugin->createEngine({{u"mailApp"_s, &m_mailApp, {}},
                                     {u"displayAlert"_s, host, u"displayAlert"_s},
                                     {u"log"_s, host, u"log"_s}});
    m_hindrance = importScript();
    return true;
}

// The engine reads modules from files only, so a text that was judged goes into one that is nobody else's.
std::optional<ScriptException> ASMail::importScript()
{
    if (!m_script.text)
        return m_engine->importModule(m_script.path);
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"ASMail.mjs"_s));
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly, QFile::ReadOwner | QFile::WriteOwner) && file.write(*m_script.text) == m_script.text->size())
        file.close();
    return m_engine->importModule(file.fileName());
}

void ASMail::mailNewMessageWithSubject(const QString &subject, const QString &withBody,
                                       const std::optional<QVariantList> &withAttachments, quint64 insertionIndex,
                                       const QString &accountName)
{
    run(u"mailNewMessageWithSubject"_s,
        {subject, withBody, arrayOrNull(withAttachments), numberObject(insertionIndex), accountName});
}

void ASMail::mailReplyAppendingBodyText(const QString &bodyText, const std::optional<QVariantList> &withAttachments,
                                        const Flags &flags, quint64 insertionIndex, const QString &accountName)
{
    run(u"mailReplyAppendingBodyText"_s,
        {bodyText, arrayOrNull(withAttachments), flags.withReplyAll, flags.sendingReply, flags.deletingOriginal,
         numberObject(insertionIndex), accountName});
}

QString ASMail::mailReplyGetSender()
{
    const QVariant sender = run(u"mailReplyGetSender"_s, {});
    return sender.typeId() == QMetaType::QString ? sender.toString() : QString();
}

std::optional<QStringList> ASMail::retrieveEmailAccounts()
{
    const QVariant names = run(u"retrieveEmailAccounts"_s, {});
    return names.typeId() == QMetaType::QVariantList ? std::optional(names.toStringList()) : std::nullopt;
}

QVariant ASMail::run(const QString &operation, const QVariantList &arguments)
{
    if (!prepare())
        return {};
    if (m_hindrance) {
        tell(QCoreApplication::translate("kest", "The mail script could not be loaded."), m_hindrance);
        return {};
    }
    if (!m_engine->hasFunction(operation)) {
        tell(QCoreApplication::translate("kest", "The mail script lacks the operation %1.").arg(operation), {});
        return {};
    }
    std::optional<ScriptException> exception;
    const QVariant result = m_engine->call(operation, arguments, &exception);
    if (exception)
        tell(QCoreApplication::translate("kest", "The mail script failed."), exception);
    return result;
}

void ASMail::tell(const QString &words, const std::optional<ScriptException> &exception)
{
    const auto [reason, line] = exception.value_or(ScriptException());
    // An engine quotes the texts that a script stumbles over; without one the reason is the system's.
    if (m_engine)
        qCWarning(mailScript).noquote() << words << "line" << line;
    else
        qCWarning(mailScript).noquote() << words << reason;
    m_alertPresenter.runModal({words, reason, {QCoreApplication::translate("kest", "OK")}, AlertContent::Style::Warning});
}

} // namespace kest
