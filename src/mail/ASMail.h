#pragma once

#include "mail/MailApplication.h"
#include "mail/MailScript.h"
#include "mail/ReplyFlags.h"
#include "mail/ScriptLoader.h"
#include "platform/AlertPresenter.h"

#include <QObject>
#include <QStringList>
#include <QVariantList>

#include <memory>
#include <optional>

namespace kest {

/// The script-backed mail back end: four operations that a script carries out
/// against the same scripting objects that MailController uses.
///
/// The script is `ASMail.mjs`, an ECMAScript module that exports the four
/// operations by these names. The system's own is a resource; a person's own
/// copy at XDG_DATA_HOME/kest/ASMail.mjs wins when nobody else can write to it;
/// it is one file and imports nothing but "kest".
/// The script shows its own alerts; what it throws is logged and shown in
/// words, and the operation then yields its empty result. So it is when the
/// script engine, which is in a plugin, cannot be loaded.
///
/// Main thread. The transport and the presenter outlive it.
class ASMail : public QObject
{
    Q_OBJECT

public:
    /// Finds the script that all objects made later will use. Called once at
    /// program entry; cheap, because no script runs yet.
    static void loadScriptObjects();

    /// The engine is loaded, and the script runs, at the first operation.
    ASMail(MailTransport &transport, AlertPresenter &alertPresenter, QObject *parent = nullptr);

    /// As above, with the script in the file `script`. `pluginFile` as
    /// ScriptLoader takes it.
    ASMail(MailTransport &transport, AlertPresenter &alertPresenter, const QString &script, QObject *parent = nullptr,
           const QByteArray &pluginFile = "kest-script.so");
    ~ASMail() override;

    /// Attachments are path texts (as FileURL::path() gives them) or FileURLs;
    /// nothing means that there is no list. `insertionIndex` counts UTF-16 code
    /// units. `accountName` may be "*none found*": the default account.
    void mailNewMessageWithSubject(const QString &subject, const QString &withBody,
                                   const std::optional<QVariantList> &withAttachments, quint64 insertionIndex,
                                   const QString &accountName);

    /// What the script finds selected from now on, whatever is selected in the
    /// mail application; with an empty list, what is selected there.
    void holdSelection(const QList<Message> &messages) { m_mailApp.holdSelection(messages); }

    using Flags = ReplyFlags;

    /// Answers the message of the last mailReplyGetSender() that gave a text, if
    /// none was answered since; else the last message of the selection.
    void mailReplyAppendingBodyText(const QString &bodyText, const std::optional<QVariantList> &withAttachments,
                                    const Flags &flags, quint64 insertionIndex, const QString &accountName);

    /// Where an answer to the last message of the selection would go, usually
    /// "Name <address>"; a null text when there is none.
    QString mailReplyGetSender();

    /// The names of the accounts, or nothing when the script gives no list. Our
    /// script gives none when there is no account.
    std::optional<QStringList> retrieveEmailAccounts();

    /// Loads the engine in the background, so that the first operation need not.
    void preload() { m_loader.preload(); }

private:
    bool prepare();
    std::optional<ScriptException> importScript();
    QVariant run(const QString &operation, const QVariantList &arguments);
    void tell(const QString &words, const std::optional<ScriptException> &exception);

    AlertPresenter &m_alertPresenter;
    MailApplication m_mailApp;
    MailScript m_script;
    ScriptLoader m_loader;
    std::unique_ptr<ScriptEngine> m_engine;
    std::optional<ScriptException> m_hindrance; // what the script threw when it was read
};

} // namespace kest
