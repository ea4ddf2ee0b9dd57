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
using namespace Qt::StringLiterals;

namespace {

const QString reply = QStringLiteral("Reply");
const QString replyAll = QStringLiteral("Reply All");
const QString noAccount = QStringLiteral("*none found*");

/// A mail script that only shows what it was called with, and knows the sender
/// that stands in place of SENDER.
constexpr char tellingScript[] = R"(
import { displayAlert } from "kest";
export function mailReplyGetSender() {
    return SENDER;
}
export function mailReplyAppendingBodyText(body, attachments, all, send, remove, insertionIndex, accountName) {
    const kinds = attachments === null ? null : attachments.map(each => typeof each);
    displayAlert(JSON.stringify([body, kinds, attachments, all, send, remove, insertionIndex, accountName]), "");
}
)";

} // namespace

/// The reply commands, when a mail script makes the reply.
class TestReplyScript : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;
    QString m_scriptPath;

    MainWindowController &controller() { return *m_house->controller; }

    void set(const QString &key, const QVariant &value) { m_house->settings->setObject(value, key); }
    FileURL recording() { return controller().audioRecorder()->recordingURL(); }

    void record()
    {
        m_house->record();
        m_house->click(u"Stop"_s);
    }

    /// What the script was called with: the last thing it showed.
    QJsonArray told()
    {
        return m_house->alerts.shown.isEmpty()
            ? QJsonArray()
            : QJsonDocument::fromJson(m_house->alerts.shown.last().messageText.toUtf8()).array();
    }

    void useTellingScript(const QByteArray &sender = "null")
    {
        QDir().mkpath(QFileInfo(m_scriptPath).path());
        QFile file(m_scriptPath);
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(QByteArray(tellingScript).replace("SENDER", sender));
        file.close();
        m_house->openAndShow();
    }

private Q_SLOTS:
    void init()
    {
        m_scriptPath = qEnvironmentVariable("XDG_DATA_HOME") + u"/kest/ASMail.mjs"_s;
        m_house = std::make_unique<WindowHouse>();
        set(SettingsKeys::tReplyBody, u"Hi"_s);
        m_house->mail.answers[u"Selection"_s] = QStringList(u"/org/kest/Mail1/message/1"_s);
        useTellingScript();
    }

    void cleanup()
    {
        m_house.reset();
        QFile::remove(m_scriptPath);
    }

    void theScriptGetsTheRecordingAsAPath()
    {
        record();
        m_house->click(reply);
        QCOMPARE(told(), QJsonArray({u"Hi\n\n"_s + localizedString(taglineKey), QJsonArray({u"string"_s}),
                                     QJsonArray({recording().path()}), false, false, false, 4, noAccount}));
        QVERIFY(!controller().recordingExists());
    }

    void bothChecksAreTheWindowsOwn()
    {
        record();
        m_house->click(reply);
        // The script asked for nothing, and no message was fetched for it.
        QCOMPARE(m_house->mail.members(), QStringList({u"Accounts"_s, u"Selection"_s}));
        m_house->mail.answers[u"Selection"_s] = QStringList();
        m_house->alerts.shown.clear();
        m_house->clock.advance(60);
        record();
        m_house->click(replyAll);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(m_house->alerts.shown.first().messageText, u"Unable to Proceed"_s);
        QVERIFY(controller().recordingExists());
    }

    void theScriptGetsTheFlagsAndTheAccount()
    {
        set(SettingsKeys::bSendReplies, true);
        set(SettingsKeys::emailAccountToUse, u"Work"_s);
        record();
        m_house->click(replyAll);
        QCOMPARE(told().at(3), QJsonValue(true));
        QCOMPARE(told().at(4), QJsonValue(true));
        QCOMPARE(told().at(5), QJsonValue(false));
        QCOMPARE(told().at(7), QJsonValue(u"Work"_s));
        set(SettingsKeys::bSendReplies, false);
        set(SettingsKeys::bDeleteOriginals, true);
        m_house->clock.advance(60);
        record();
        m_house->click(reply);
        QCOMPARE(told().at(3), QJsonValue(false));
        QCOMPARE(told().at(4), QJsonValue(false));
        QCOMPARE(told().at(5), QJsonValue(true));
    }

    void theScriptGetsAChosenFileAsAPathToo()
    {
        m_house->writePrepared(u"song.m4a"_s, "x");
        m_house->choosePrepared(u"song.m4a"_s);
        m_house->click(reply);
        const QString path = m_house->delegate.attachments->appendingPathComponent(u"song.m4a"_s).path();
        QCOMPARE(told(), QJsonArray({u"\n\n\n\n"_s + localizedString(taglineKey), QJsonArray({u"string"_s}),
                                     QJsonArray({path}), false, false, false, 1, noAccount}));
        QVERIFY(controller().attachmentName().isNull());
    }

    void theScriptGetsNoListForAText()
    {
        m_house->writePrepared(u"hello.txt"_s, "Hello");
        m_house->choosePrepared(u"hello.txt"_s);
        m_house->click(reply);
        QCOMPARE(told(), QJsonArray({u"Hello\n\n"_s + localizedString(textTaglineKey), QJsonValue(), QJsonValue(),
                                     false, false, false, 6, noAccount}));
    }

    void theScriptGetsAnEmptyListWhenTheFolderIsGone()
    {
        m_house->delegate.attachments.reset();
        m_house->choosePrepared(u"hello.txt"_s);
        m_house->click(reply);
        QCOMPARE(told().at(2), QJsonValue(QJsonArray()));
        QVERIFY(controller().attachmentName().isNull());
    }

    void theScriptGetsAnEmptyListWithoutARecordingAndTheWindowSaysSo()
    {
        controller().setRecordingExists(true);
        m_house->click(reply);
        QCOMPARE(told().at(2), QJsonValue(QJsonArray()));
        QVERIFY(!controller().recordingExists());
        QCOMPARE(m_house->notice(), u"There was no recording to attach."_s);
    }

    void withoutTextAndTaglineTheBodyIsTwoLineFeeds()
    {
        // An absent key reads as nothing, so the house has to have no default for it.
        m_house->settings = std::make_unique<UserDefaults>(m_house->home.filePath(u"other.ini"_s));
        m_house->settings->setBool(true, SettingsKeys::useASClass);
        m_house->openAndShow();
        record();
        m_house->click(reply);
        QCOMPARE(told().at(0), QJsonValue(u"\n\n"_s));
        QCOMPARE(told().at(6), QJsonValue(2));
        QCOMPARE(told().at(7), QJsonValue(noAccount));
    }

    void theScriptsSenderNamesTheRecording_data()
    {
        QTest::addColumn<QByteArray>("sender");
        QTest::addColumn<QString>("name");
        QTest::newRow("name") << QByteArray(R"("Sales Desk <desk@example.org>")")
                              << u"2024-03-05_14-07-09_Sales Desk.m4a"_s;
        QTest::newRow("none") << QByteArray("null") << u"2024-03-05_14-07-09_(null).m4a"_s;
        QTest::newRow("no text") << QByteArray("42") << u"2024-03-05_14-07-09_(null).m4a"_s;
        QTest::newRow("empty") << QByteArray(R"("")") << u"2024-03-05_14-07-09_.m4a"_s;
        QTest::newRow("no file name") << QByteArray(R"("A/B <a@b>")") << u"2024-03-05_14-07-09.m4a"_s;
    }

    void theScriptsSenderNamesTheRecording()
    {
        QFETCH(QByteArray, sender);
        QFETCH(QString, name);
        set(SettingsKeys::bIncudeReplyToInName, true);
        useTellingScript(sender);
        record();
        m_house->click(reply);
        const QString path = m_house->delegate.recordings->appendingPathComponent(name).path();
        QCOMPARE(told().at(2), QJsonValue(QJsonArray({path})));
        QVERIFY(QFile::exists(path));
        QCOMPARE(QDir(m_house->delegate.recordings->path()).entryList(QDir::Files).size(), 1);
    }

    void withAPreparedMessageTheScriptIsNotAskedForTheSender_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("file") << u"song.ogg"_s;
        QTest::newRow("text") << u"hello.txt"_s;
    }

    void withAPreparedMessageTheScriptIsNotAskedForTheSender()
    {
        QFETCH(QString, name);
        set(SettingsKeys::bIncudeReplyToInName, true);
        useTellingScript("nobodyKnowsThis()"); // asked, it would fail and an alert would say so
        record();
        m_house->writePrepared(name, "x");
        m_house->choosePrepared(name);
        m_house->click(reply);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(told().at(7), QJsonValue(noAccount));
        QCOMPARE(QDir(m_house->delegate.recordings->path()).entryList(QDir::Files),
                 QStringList(u"2024-03-05_14-07-09.m4a"_s));
    }

    void aScriptThatFailsTellsAndTheCommandGoesOnToItsEnd()
    {
        set(SettingsKeys::bIncudeReplyToInName, true);
        useTellingScript("nobodyKnowsThis()");
        record();
        m_house->click(reply);
        QCOMPARE(m_house->alerts.shown.first().messageText, u"The mail script failed."_s);
        QCOMPARE(told().at(2).toArray().size(), 1);
        QVERIFY(!controller().recordingExists());
        QVERIFY(!controller().busy());
    }
};

QTEST_MAIN(TestReplyScript)
#include "tst_replyscript.moc"
