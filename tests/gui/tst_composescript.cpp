#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

const QString newMessage = QStringLiteral("New Message");
const QString subject = QStringLiteral("Subject");

/// A mail script that only shows what it was called with.
constexpr char tellingScript[] = R"(
import { displayAlert } from "kest";
export function mailNewMessageWithSubject(subject, body, attachments, insertionIndex, accountName) {
    const kinds = attachments === null ? null : attachments.map(each => typeof each);
    const paths = attachments === null ? null : attachments.filter(each => typeof each === "string");
    displayAlert(JSON.stringify([subject, body, kinds, paths, insertionIndex, accountName]), "");
}
)";

} // namespace

/// The New Message command, when a mail script makes the message.
class TestComposeScript : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;
    QString m_scriptPath;

    MainWindowController &controller() { return *m_house->controller; }

    void useScript(bool script) { m_house->settings->setBool(script, SettingsKeys::useASClass); }
    void set(const QString &key, const QVariant &value) { m_house->settings->setObject(value, key); }
    void record() { m_house->record(); }
    FileURL recording() { return controller().audioRecorder()->recordingURL(); }
    void writePrepared(const QString &name, const QByteArray &content) { m_house->writePrepared(name, content); }
    void choose(const QString &name) { m_house->choosePrepared(name); }

    /// What the script was called with.
    QJsonArray told()
    {
        return m_house->alerts.shown.isEmpty()
            ? QJsonArray()
            : QJsonDocument::fromJson(m_house->alerts.shown.last().messageText.toUtf8()).array();
    }

    void useTellingScript()
    {
        QDir().mkpath(QFileInfo(m_scriptPath).path());
        QFile file(m_scriptPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(tellingScript);
        file.close();
        m_house->openAndShow();
    }

private Q_SLOTS:
    void init()
    {
        m_scriptPath = qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/kest/ASMail.mjs");
        m_house = std::make_unique<WindowHouse>();
        set(SettingsKeys::tNewMessageSubject, subject);
        set(SettingsKeys::tNewMessageBody, QStringLiteral("Hi"));
        useScript(false);
        m_house->openAndShow();
    }

    void cleanup()
    {
        m_house.reset();
        QFile::remove(m_scriptPath);
    }

    void theAccountIsCheckedForTheScriptToo_data()
    {
        QTest::addColumn<bool>("script");
        QTest::newRow("script") << true;
        QTest::newRow("own") << false;
    }

    // One text for both back ends, so what each shows is what the other shows.
    void theAccountIsCheckedForTheScriptToo()
    {
        QFETCH(bool, script);
        m_house->mail.answers[QStringLiteral("Accounts")] = QVariantList();
        useScript(script);
        record();
        m_house->click(newMessage);
        QCOMPARE(m_house->mail.members(), QStringList(QStringLiteral("Accounts")));
        QCOMPARE(m_house->alerts.shown.size(), 1);
        const AlertContent alert = m_house->alerts.shown.first();
        QCOMPARE(alert.messageText, QStringLiteral("Unable to Proceed"));
        QCOMPARE(alert.informativeText,
                 QStringLiteral("No accounts were detected in Mail. You must have at least one account configured in "
                                "order to create messages or reply to messages. Please ensure that you have an account "
                                "configured, and try again."));
        QCOMPARE(alert.buttons, QStringList(QStringLiteral("OK")));
        QVERIFY(alert.style == AlertContent::Style::Warning);
    }

    void theScriptGetsTheRecordingAsAPath()
    {
        useScript(true);
        useTellingScript();
        record();
        m_house->click(newMessage);
        QCOMPARE(told(), QJsonArray({subject, QStringLiteral("Hi\n\n") + localizedString(taglineKey),
                                     QJsonArray({QStringLiteral("string")}), QJsonArray({recording().path()}), 4,
                                     QStringLiteral("*none found*")}));
        QVERIFY(!controller().recordingExists());
    }

    void theScriptGetsTheChosenAccount()
    {
        useScript(true);
        set(SettingsKeys::emailAccountToUse, QStringLiteral("Work"));
        useTellingScript();
        record();
        m_house->click(newMessage);
        QCOMPARE(told().at(5).toString(), QStringLiteral("Work"));
    }

    void withoutAChosenAccountTheScriptIsToldSo()
    {
        // Nothing is registered here, so it is the command that has to say it.
        m_house->settings = std::make_unique<UserDefaults>(m_house->home.filePath(QStringLiteral("other.ini")));
        useScript(true);
        useTellingScript();
        QVERIFY(!m_house->settings->objectForKey(SettingsKeys::emailAccountToUse).isValid());
        record();
        m_house->click(newMessage);
        QCOMPARE(told().at(5).toString(), QStringLiteral("*none found*"));
        QCOMPARE(told().at(1).toString(), QStringLiteral("\n\n"));
        QCOMPARE(told().at(4).toInt(), 2);
    }

    void theScriptGetsAChosenFileAsALocation()
    {
        useScript(true);
        writePrepared(QStringLiteral("song.m4a"), "x");
        useTellingScript();
        choose(QStringLiteral("song.m4a"));
        m_house->click(newMessage);
        QCOMPARE(told(), QJsonArray({subject, QStringLiteral("\n\n\n\n") + localizedString(taglineKey),
                                     QJsonArray({QStringLiteral("object")}), QJsonArray(), 1,
                                     QStringLiteral("*none found*")}));
    }

    void theScriptGetsNoListForAText()
    {
        useScript(true);
        writePrepared(QStringLiteral("hello.txt"), "Hello");
        useTellingScript();
        choose(QStringLiteral("hello.txt"));
        m_house->click(newMessage);
        QCOMPARE(told(), QJsonArray({subject, QStringLiteral("Hello\n\n") + localizedString(textTaglineKey),
                                     QJsonValue(), QJsonValue(), 6, QStringLiteral("*none found*")}));
    }

    void theScriptGetsAnEmptyListWhenTheFolderIsGone()
    {
        useScript(true);
        useTellingScript();
        m_house->delegate.attachments.reset();
        choose(QStringLiteral("hello.txt"));
        m_house->click(newMessage);
        QCOMPARE(told().at(2), QJsonValue(QJsonArray()));
        QVERIFY(controller().attachmentName().isNull());
    }

    void theRealScriptMakesTheWholeMessageInOneCall()
    {
        useScript(true);
        writePrepared(QStringLiteral("song.m4a"), "x");
        choose(QStringLiteral("song.m4a"));
        m_house->click(newMessage);
        const QVariantList arguments = m_house->mail.argumentsOf(QStringLiteral("NewMessage"));
        QCOMPARE(arguments.value(0).toString(), subject);
        QCOMPARE(arguments.value(4).toList().first().value<MailFile>().file,
                 m_house->delegate.attachments->appendingPathComponent(QStringLiteral("song.m4a")));
    }

    void withoutARecordingTheScriptIsNotCalled()
    {
        useScript(true);
        useTellingScript();
        controller().setRecordingExists(true);
        controller().setAttachmentName(QString());
        m_house->click(newMessage);
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(controller().recordingExists());
        QCOMPARE(m_house->notice(), QStringLiteral("There is no recording to send yet."));
    }
};

QTEST_MAIN(TestComposeScript)
#include "tst_composescript.moc"
