#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "audio/KestLevelsView.h"
#include "gui/WindowHouse.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QTimer>

#include <stdexcept>

using namespace kest;
using namespace kest::test;

namespace {

const QString reply = QStringLiteral("Reply");
const QString replyAll = QStringLiteral("Reply All");
const QString selection = QStringLiteral("Selection");
const QString makeMessage = QStringLiteral("MakeOutgoingMessage");
const QString insertAttachment = QStringLiteral("InsertAttachment");
const QString firstMessage = QStringLiteral("/org/kest/Mail1/message/1");
const QString lastMessage = QStringLiteral("/org/kest/Mail1/message/2");

} // namespace

/// The reply commands through the window's own back end: what is asked, in what
/// order, and the window's state afterwards.
class TestReply : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    RecordingMailTransport &mail() { return m_house->mail; }

    void set(const QString &key, const QVariant &value) { m_house->settings->setObject(value, key); }
    FileURL recording() { return controller().audioRecorder()->recordingURL(); }
    QString body() { return mail().argumentsOf(makeMessage).value(1).toString(); }
    FileURL attached() { return mail().argumentsOf(insertAttachment).value(1).value<MailFile>().file; }
    quint64 index() { return mail().argumentsOf(insertAttachment).value(2).toULongLong(); }

    QStringList recordings()
    {
        return QDir(m_house->delegate.recordings->path()).entryList(QDir::Files, QDir::Name);
    }

    /// The flag of every "Reply" that was asked, and of which message.
    QString repliedTo()
    {
        for (const MailCall &call : mail().calls) {
            if (call.member == reply)
                return call.objectPath;
        }
        return {};
    }

    void recordAndStop()
    {
        m_house->record();
        m_house->click(QStringLiteral("Stop"));
    }

    void expectUnusedRecording()
    {
        QVERIFY(controller().recordingExists());
        QVERIFY(!controller().busy());
        QVERIFY(m_house->isEnabled(reply));
        QCOMPARE(recordings(), QStringList(recording().lastPathComponent()));
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        set(SettingsKeys::tReplyBody, QStringLiteral("Hi"));
        m_house->settings->setBool(false, SettingsKeys::useASClass);
        mail().answers[selection] = QStringList{firstMessage, lastMessage};
        mail().answers[reply] = QStringLiteral("/org/kest/Mail1/outgoing/7");
        mail().answers[QStringLiteral("Content")] = QStringLiteral("> Lunch?");
        mail().answers[QStringLiteral("ReplyTo")] = QStringLiteral("Sales Desk <desk@example.org>");
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void theLastSelectedMessageIsAnsweredWithTheRecordingInFrontOfTheTagline()
    {
        recordAndStop();
        m_house->click(reply);
        QCOMPARE(mail().members().first(3), QStringList({QStringLiteral("Accounts"), selection, selection}));
        QCOMPARE(repliedTo(), lastMessage);
        QCOMPARE(mail().members().count(reply), 1);
        QCOMPARE(body(), QStringLiteral("Hi\n\n") + localizedString(taglineKey) + QStringLiteral("> Lunch?"));
        QCOMPARE(index(), 4U);
        QCOMPARE(attached(), recording());
        QVERIFY(mail().members().contains(QStringLiteral("Activate")));
        QVERIFY(!mail().members().contains(QStringLiteral("Send")));
    }

    void theMailApplicationsOwnReplyIsToAllAndNeverOnTheScreen_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("reply") << reply;
        QTest::newRow("reply to all") << replyAll;
    }

    void theMailApplicationsOwnReplyIsToAllAndNeverOnTheScreen()
    {
        QFETCH(QString, command);
        recordAndStop();
        m_house->click(command);
        QCOMPARE(mail().argumentsOf(reply), QVariantList({false, true})); // no window, to all
    }

    void aUsedRecordingIsNoLongerThere()
    {
        recordAndStop();
        m_house->click(replyAll);
        QVERIFY(!controller().recordingExists());
        QVERIFY(!controller().canReplyOrCompose());
        QCOMPARE(controller().recordingTime(), QStringLiteral("--:--"));
        QVERIFY(controller().attachmentName().isNull());
        QVERIFY(!m_house->isEnabled(replyAll));
        QCOMPARE(m_house->notice(), QStringLiteral("Ready to record"));
    }

    void replyWhileRecordingStopsFirst()
    {
        m_house->record();
        QStringList callsAtCheck;
        mail().whileBusy = [&](const MailCall &call) {
            if (call.member == u"Accounts")
                callsAtCheck = m_house->recorders.calls;
        };
        m_house->click(reply);
        QVERIFY(callsAtCheck.contains(QStringLiteral("stop")));
        QVERIFY(!controller().recordingActive());
        QCOMPARE(controller().levelsView()->powerFraction(), 0.0);
        QCOMPARE(attached(), recording());
    }

    void withoutAnAccountTheSelectionIsNotAsked()
    {
        mail().answers[QStringLiteral("Accounts")] = QVariantList();
        recordAndStop();
        m_house->choosePrepared(QStringLiteral("a.txt"));
        m_house->click(reply);
        QCOMPARE(mail().members(), QStringList(QStringLiteral("Accounts")));
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(controller().attachmentName(), QStringLiteral("a.txt"));
        expectUnusedRecording();
    }

    void withoutASelectedMessageOnlyTheAlertIsShown()
    {
        mail().answers[selection] = QStringList();
        m_house->record();
        m_house->click(reply);
        QCOMPARE(mail().members(), QStringList({QStringLiteral("Accounts"), selection}));
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(m_house->alerts.shown.first().messageText, QStringLiteral("Unable to Proceed"));
        QCOMPARE(m_house->alerts.shown.first().informativeText,
                 QStringLiteral("No messages appear to be selected in Mail. Please select a message and try again."));
        QVERIFY(!controller().recordingActive());
        expectUnusedRecording();
    }

    void theScriptAnswersWhatWasSelectedAtThePress_data()
    {
        QTest::addColumn<QStringList>("selectedMeanwhile");
        QTest::newRow("another message") << QStringList(QStringLiteral("/org/kest/Mail1/message/9"));
        QTest::newRow("none") << QStringList();
    }

    void theScriptAnswersWhatWasSelectedAtThePress()
    {
        QFETCH(QStringList, selectedMeanwhile);
        set(SettingsKeys::useASClass, true);
        set(SettingsKeys::bIncudeReplyToInName, true);
        mail().answers[QStringLiteral("Features")] = QStringList{reply};
        int asked = 0;
        mail().whileBusy = [&](const MailCall &call) {
            if (call.member == selection && ++asked == 2)
                mail().answers[selection] = selectedMeanwhile;
        };
        recordAndStop();
        m_house->click(reply);
        QCOMPARE(mail().argumentsOf(reply).value(0).toString(), lastMessage);
        QVERIFY(m_house->alerts.shown.isEmpty());
    }

    void theNextReplyAsksAnewWhatIsSelected()
    {
        set(SettingsKeys::useASClass, true);
        mail().answers[QStringLiteral("Features")] = QStringList{reply};
        for (const QString &message : {lastMessage, firstMessage}) {
            mail().answers[selection] = QStringList(message);
            recordAndStop();
            m_house->click(reply);
            QCOMPARE(mail().argumentsOf(reply).value(0).toString(), message);
        }
    }

    void aPreparedMessageCanStillBeSentAfterTheAlert()
    {
        mail().answers[selection] = QStringList();
        m_house->choosePrepared(QStringLiteral("a.txt"));
        m_house->click(reply);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(controller().attachmentName(), QStringLiteral("a.txt"));
        QVERIFY(m_house->isEnabled(reply));
        mail().answers[selection] = QStringList(lastMessage);
        m_house->click(reply);
        QCOMPARE(repliedTo(), lastMessage);
        QVERIFY(!m_house->isEnabled(reply));
    }

    void aSelectionThatEmptiesAfterTheCheckAbandonsTheCommand()
    {
        recordAndStop();
        int asked = 0;
        mail().whileBusy = [&](const MailCall &call) {
            if (call.member == selection && ++asked == 2)
                mail().answers[selection] = QStringList();
        };
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, controller().mailReplyToSelectedMessages());
        QCOMPARE(mail().members().last(), selection);
        QVERIFY(m_house->alerts.shown.isEmpty());
        QCOMPARE(m_house->notice(), QStringLiteral("The reply could not be made. Please try again."));
        expectUnusedRecording();
    }

    void whyNoReplyCouldBeMadeIsTold()
    {
        mail().failures[reply] = {QStringLiteral("mail"), 7, QStringLiteral("This reply must be encrypted."), QString()};
        mail().answers.remove(QStringLiteral("Content"));
        recordAndStop();
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, controller().mailReplyToSelectedMessages());
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(m_house->alerts.shown.first().messageText, QStringLiteral("This reply must be encrypted."));
        QCOMPARE(m_house->notice(), QStringLiteral("The reply could not be made. Please try again."));
        expectUnusedRecording();
    }

    void theMessageIsFetchedBeforeThePreparedFileIsLookedAt()
    {
        m_house->delegate.attachments.reset();
        m_house->choosePrepared(QStringLiteral("hello.txt"));
        mail().answers[selection] = QStringList(firstMessage);
        m_house->click(reply);
        QCOMPARE(mail().members().first(3), QStringList({QStringLiteral("Accounts"), selection, selection}));
        QCOMPARE(repliedTo(), firstMessage);
    }

    void noReplyOfTheMailApplicationsLeavesTheRecordingForAnotherTry()
    {
        mail().failures[QStringLiteral("Content")] = {kestErrorDomain, 1, QStringLiteral("gone"), {}};
        set(SettingsKeys::bIncudeReplyToInName, true);
        recordAndStop();
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, controller().mailReplyToSelectedMessages());
        QVERIFY(!mail().members().contains(makeMessage));
        expectUnusedRecording();
        mail().failures.clear();
        m_house->click(reply);
        QCOMPARE(attached().lastPathComponent(), QStringLiteral("2024-03-05_14-07-09_Sales Desk.m4a"));
        QVERIFY(!controller().recordingExists());
    }

    void theFlagsComeFromTheSettings()
    {
        set(SettingsKeys::bSendReplies, true);
        set(SettingsKeys::bDeleteOriginals, true);
        recordAndStop();
        m_house->click(reply);
        QVERIFY(mail().members().contains(QStringLiteral("Send")));
        QVERIFY(!mail().members().contains(QStringLiteral("Activate")));
        QCOMPARE(mail().calls.last().member, QStringLiteral("Delete"));
        QCOMPARE(mail().calls.last().objectPath, lastMessage);
    }

    void aReplyThatIsNotSentKeepsTheOriginal()
    {
        set(SettingsKeys::bSendReplies, true);
        set(SettingsKeys::bDeleteOriginals, true);
        mail().failures[QStringLiteral("Send")] = {kestErrorDomain, 1, QStringLiteral("no server"), {}};
        recordAndStop();
        m_house->click(reply);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(m_house->alerts.shown.first().messageText, QStringLiteral("no server"));
        QVERIFY(mail().calls.last().objectPath != lastMessage);
        QVERIFY(!controller().recordingExists());
        QVERIFY(QFile::exists(recording().path()));
    }

    void theHandOverWaitsForTheFinishedFile()
    {
        m_house->recorders.finishDelay = 200;
        m_house->record();
        bool finishedAtReply = false;
        QString noticeMeanwhile;
        QTimer::singleShot(50, this, [&] { noticeMeanwhile = m_house->notice(); });
        mail().whileBusy = [&](const MailCall &call) {
            if (call.member == reply)
                finishedAtReply = m_house->recorders.calls.contains(QStringLiteral("finished"));
        };
        m_house->click(reply);
        QVERIFY(finishedAtReply);
        QCOMPARE(noticeMeanwhile, QStringLiteral("Finishing the recording…"));
    }

    void aFileThatIsNeverFinishedIsNeitherRenamedNorHandedOver()
    {
        m_house->recorders.finishDelay = -1;
        m_house->finishTimeLimit = std::chrono::milliseconds(100);
        set(SettingsKeys::bIncudeReplyToInName, true);
        m_house->openAndShow();
        m_house->record();
        m_house->click(reply);
        QVERIFY(!mail().members().contains(reply));
        QCOMPARE(m_house->notice(), QStringLiteral("The recording is still being finished. Please try again."));
        expectUnusedRecording();
    }

    void aPreparedTextIsNotWaitingForTheRecording()
    {
        m_house->recorders.finishDelay = -1;
        m_house->record();
        m_house->writePrepared(QStringLiteral("hello.txt"), "Hello");
        m_house->choosePrepared(QStringLiteral("hello.txt"));
        m_house->click(reply);
        QVERIFY(body().startsWith(QStringLiteral("Hello\n\n") + localizedString(textTaglineKey)));
        QVERIFY(!mail().members().contains(insertAttachment));
    }

    void withoutARecordingTheReplyIsMadeWithoutOneAndTheWindowSaysSo()
    {
        controller().setRecordingExists(true);
        set(SettingsKeys::bIncudeReplyToInName, true);
        m_house->click(reply);
        QVERIFY(mail().members().contains(makeMessage));
        QVERIFY(!mail().members().contains(insertAttachment));
        QVERIFY(!controller().recordingExists());
        QVERIFY(controller().recordingTime().isNull());
        QCOMPARE(m_house->notice(), QStringLiteral("There was no recording to attach."));
    }

    void noCommandBeginsWhileOneRuns()
    {
        m_house->record();
        QStringList enabled;
        mail().whileBusy = [&](const MailCall &) {
            for (const char *name : {"Record", "Stop", "New Message", "Reply", "Reply All", "Optional Message"}) {
                if (m_house->isEnabled(QString::fromLatin1(name)))
                    enabled.append(QString::fromLatin1(name));
            }
            controller().mailReplyAllToSelectedMessages();
            controller().mailComposeNewMessage();
        };
        m_house->click(reply);
        QCOMPARE(enabled, QStringList());
        QCOMPARE(mail().members().count(QStringLiteral("Accounts")), 1);
        QCOMPARE(mail().members().count(makeMessage), 1);
        QVERIFY(!controller().busy());
    }

    void afterASentRecordingTheFocusIsOnRecord()
    {
        recordAndStop();
        QWidget *button = m_house->find(reply);
        button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(!button->isEnabled());
        QVERIFY(m_house->find(QStringLiteral("Record"))->hasFocus());
    }
};

QTEST_MAIN(TestReply)
#include "tst_reply.moc"
