#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "audio/KestLevelsView.h"
#include "gui/WindowHouse.h"
#include "ui/controls/ControlButton.h"

#include <QTest>
#include <QTimer>

using namespace kest;
using namespace kest::test;

namespace {

const QString newMessage = QStringLiteral("New Message");
const QString subject = QStringLiteral("Subject");
const QString makeMessage = QStringLiteral("MakeOutgoingMessage");
const QString insertAttachment = QStringLiteral("InsertAttachment");

} // namespace

/// The New Message command: what it hands over, and the window while it runs.
class TestCompose : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }

    void useScript(bool script) { m_house->settings->setBool(script, SettingsKeys::useASClass); }
    void set(const QString &key, const QVariant &value) { m_house->settings->setObject(value, key); }
    void record() { m_house->record(); }
    FileURL recording() { return controller().audioRecorder()->recordingURL(); }
    void writePrepared(const QString &name, const QByteArray &content) { m_house->writePrepared(name, content); }
    void choose(const QString &name) { m_house->choosePrepared(name); }
    QString body() { return m_house->mail.argumentsOf(makeMessage).value(1).toString(); }
    quint64 index() { return m_house->mail.argumentsOf(insertAttachment).value(2).toULongLong(); }
    FileURL attached() { return m_house->mail.argumentsOf(insertAttachment).value(1).value<MailFile>().file; }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        set(SettingsKeys::tNewMessageSubject, subject);
        set(SettingsKeys::tNewMessageBody, QStringLiteral("Hi"));
        useScript(false);
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void theRecordingGoesInFrontOfTheTagline()
    {
        record();
        m_house->click(QStringLiteral("Stop"));
        m_house->click(newMessage);
        QCOMPARE(m_house->mail.argumentsOf(makeMessage).value(0).toString(), subject);
        QCOMPARE(body(), QStringLiteral("Hi\n\n") + localizedString(taglineKey));
        QCOMPARE(index(), 4U);
        QCOMPARE(attached(), recording());
        QCOMPARE(m_house->mail.members().first(), QStringLiteral("Accounts"));
        QVERIFY(m_house->mail.members().contains(QStringLiteral("Activate")));
    }

    void aUsedRecordingIsNoLongerThere()
    {
        record();
        controller().setAttachmentName(QString());
        m_house->click(newMessage);
        QVERIFY(!controller().recordingExists());
        QVERIFY(!controller().canReplyOrCompose());
        QVERIFY(!controller().recordingActive());
        QCOMPARE(controller().recordingTime(), QStringLiteral("--:--"));
        QVERIFY(!m_house->isEnabled(newMessage));
        QVERIFY(m_house->isEnabled(QStringLiteral("Record")));
    }

    void aUsedRecordingIsNotSentAgainWhereTheNextCouldNotBegin()
    {
        record();
        m_house->click(newMessage);
        QCOMPARE(attached(), recording());
        m_house->mail.calls.clear();
        m_house->delegate.recordings.reset();
        m_house->click(QStringLiteral("Record"));
        m_house->click(newMessage);
        QVERIFY(!m_house->mail.members().contains(insertAttachment));
    }

    void composeWhileRecordingStopsFirst()
    {
        record();
        QStringList callsAtCheck;
        m_house->mail.whileBusy = [&](const MailCall &call) {
            if (call.member == u"Accounts")
                callsAtCheck = m_house->recorders.calls;
        };
        m_house->click(newMessage);
        QVERIFY(callsAtCheck.contains(QStringLiteral("stop")));
        QCOMPARE(attached(), recording());
        QCOMPARE(controller().levelsView()->powerFraction(), 0.0);
    }

    void withoutTextAndTaglineTheBodyIsTwoLineFeeds()
    {
        // An absent key reads as nothing, so the house has to have no default for it.
        m_house->settings = std::make_unique<UserDefaults>(m_house->home.filePath(QStringLiteral("other.ini")));
        m_house->openAndShow();
        record();
        m_house->click(newMessage);
        QCOMPARE(m_house->mail.argumentsOf(makeMessage), QVariantList({QString(), QStringLiteral("\n\n")}));
        QCOMPARE(index(), 2U);
    }

    void withoutAnAccountNothingIsMade()
    {
        m_house->mail.answers[QStringLiteral("Accounts")] = QVariantList();
        record();
        choose(QStringLiteral("a.txt"));
        m_house->click(newMessage);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(m_house->alerts.shown.first().messageText, QStringLiteral("Unable to Proceed"));
        QCOMPARE(m_house->mail.members(), QStringList(QStringLiteral("Accounts")));
        QVERIFY(!controller().recordingActive());
        QVERIFY(controller().recordingExists());
        QCOMPARE(controller().attachmentName(), QStringLiteral("a.txt"));
    }

    void withoutARecordingTheOtherBackEndMakesAMessageWithoutOne()
    {
        controller().setCanReplyOrCompose(true);
        controller().setRecordingExists(true);
        m_house->click(newMessage);
        QVERIFY(m_house->mail.members().contains(makeMessage));
        QVERIFY(!m_house->mail.members().contains(insertAttachment));
        QVERIFY(!controller().recordingExists());
        QVERIFY(controller().recordingTime().isNull());
    }

    void textFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isText");
        QTest::newRow("lower case") << "notes.txt" << true;
        QTest::newRow("upper case") << "NOTES.TXT" << true;
        QTest::newRow("longer extension") << "notes.text" << false;
        QTest::newRow("rich text") << "notes.rtf" << false;
        QTest::newRow("no extension") << "notes" << false;
    }

    void textFile()
    {
        QFETCH(QString, name);
        QFETCH(bool, isText);
        writePrepared(name, "Hello");
        record();
        choose(name);
        m_house->click(newMessage);
        const QString text = QStringLiteral("Hello\n\n") + localizedString(textTaglineKey);
        const QString file = QStringLiteral("\n\n\n\n") + localizedString(taglineKey);
        QCOMPARE(body(), isText ? text : file);
        QCOMPARE(m_house->mail.members().contains(insertAttachment), !isText);
        if (!isText)
            QCOMPARE(index(), 1U);
    }

    void withoutTaglineTheFileCaseHasTwoLineFeeds()
    {
        set(SettingsKeys::bIncludeTagline, false);
        writePrepared(QStringLiteral("song.ogg"), "x");
        choose(QStringLiteral("song.ogg"));
        m_house->click(newMessage);
        QCOMPARE(body(), QStringLiteral("\n\n"));
        QCOMPARE(index(), 1U);
    }

    void anUnreadableTextIsReplacedByASentence()
    {
        choose(QStringLiteral("gone.txt"));
        m_house->click(newMessage);
        const QString path = m_house->delegate.attachments->appendingPathComponent(QStringLiteral("gone.txt")).path();
        QVERIFY2(body().startsWith(QStringLiteral("The file '%1' could not be read (").arg(path)), qPrintable(body()));
        QVERIFY(m_house->alerts.shown.isEmpty());
    }

    void aPreparedMessageLeavesTheRecordingToALaterCommand_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("text") << "hello.txt";
        QTest::newRow("file") << "song.ogg";
    }

    void aPreparedMessageLeavesTheRecordingToALaterCommand()
    {
        QFETCH(QString, name);
        const bool isText = name == u"hello.txt";
        writePrepared(name, "Hello");
        record();
        choose(name);
        m_house->click(newMessage);
        QVERIFY(controller().recordingExists());
        QVERIFY(controller().attachmentName().isNull());
        QVERIFY(m_house->isEnabled(newMessage));
        QCOMPARE(m_house->mail.members().contains(insertAttachment), !isText);
        if (!isText)
            QCOMPARE(attached(), m_house->delegate.attachments->appendingPathComponent(name));
        m_house->mail.calls.clear();
        m_house->click(newMessage);
        QCOMPARE(attached(), recording());
        QVERIFY(!controller().recordingExists());
    }

    void aMissingFolderMakesAMessageWithoutAttachment()
    {
        m_house->delegate.attachments.reset();
        choose(QStringLiteral("hello.txt"));
        m_house->click(newMessage);
        QCOMPARE(body(), QStringLiteral("\n\n\n\n") + localizedString(taglineKey));
        QVERIFY(!m_house->mail.members().contains(insertAttachment));
        QVERIFY(controller().attachmentName().isNull());
    }

    void aFailureOfTheMailApplicationDoesNotKeepTheRecording()
    {
        m_house->mail.failures[insertAttachment] = {kestErrorDomain, 1, QStringLiteral("no room"), {}};
        m_house->mail.failures[QStringLiteral("Activate")] = {kestErrorDomain, 1, QStringLiteral("gone"), {}};
        record();
        m_house->click(newMessage);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QVERIFY(!controller().recordingExists());
    }

    void theSettingsAreReadForEveryCommand()
    {
        record();
        m_house->click(newMessage);
        QVERIFY(m_house->mail.members().contains(makeMessage));
        m_house->mail.calls.clear();
        useScript(true);
        m_house->clock.advance(60);
        record();
        m_house->click(newMessage);
        QVERIFY(!m_house->mail.members().contains(makeMessage));
        QVERIFY(m_house->mail.members().contains(QStringLiteral("NewMessage")));
    }

    void theHandOverWaitsForTheFinishedFile()
    {
        m_house->recorders.finishDelay = 200;
        record();
        bool finishedAtInsert = false;
        QString noticeMeanwhile;
        QTimer::singleShot(50, this, [&] { noticeMeanwhile = m_house->notice(); });
        m_house->mail.whileBusy = [&](const MailCall &call) {
            if (call.member == insertAttachment)
                finishedAtInsert = m_house->recorders.calls.contains(QStringLiteral("finished"));
        };
        m_house->click(newMessage);
        QVERIFY(finishedAtInsert);
        QCOMPARE(noticeMeanwhile, QStringLiteral("Finishing the recording…"));
        QCOMPARE(m_house->notice(), QStringLiteral("Ready to record"));
    }

    void aFileThatIsNeverFinishedIsNotHandedOver()
    {
        m_house->recorders.finishDelay = -1;
        m_house->finishTimeLimit = std::chrono::milliseconds(100);
        m_house->openAndShow();
        record();
        m_house->click(newMessage);
        QVERIFY(!m_house->mail.members().contains(makeMessage));
        QVERIFY(controller().recordingExists());
        QVERIFY(m_house->isEnabled(newMessage));
        QCOMPARE(m_house->notice(), QStringLiteral("The recording is still being finished. Please try again."));
        m_house->recorders.last()->finish();
        m_house->click(newMessage);
        QCOMPARE(attached(), recording());
    }

    void noCommandBeginsWhileOneRuns()
    {
        record();
        QStringList enabled;
        int nested = 0;
        m_house->mail.whileBusy = [&](const MailCall &) {
            for (const char *name : {"Record", "Pause", "Stop", "New Message", "Reply", "Reply All", "Preferences",
                                     "Optional Message"}) {
                if (m_house->isEnabled(QString::fromLatin1(name)))
                    enabled.append(QString::fromLatin1(name));
            }
            const qsizetype before = m_house->mail.calls.size();
            controller().mailComposeNewMessage();
            controller().audioRecordingRecord();
            nested += static_cast<int>(m_house->mail.calls.size() - before);
        };
        m_house->click(newMessage);
        QCOMPARE(enabled, QStringList());
        QCOMPARE(nested, 0);
        QCOMPARE(m_house->recorders.made.size(), 1);
        QVERIFY(!controller().busy());
        QCOMPARE(m_house->mail.members().count(makeMessage), 1);
    }

    void theHandOverIsVisible()
    {
        record();
        QString seen;
        m_house->mail.whileBusy = [&](const MailCall &call) {
            if (call.member != insertAttachment)
                return;
            Q_EMIT m_house->mail.handOverProgressed(500000, 2000000);
            seen = m_house->notice();
        };
        m_house->click(newMessage);
        QCOMPARE(seen, QStringLiteral("Handing over: 500.0 kB of 2.0 MB"));
        QCOMPARE(m_house->notice(), QStringLiteral("Ready to record"));
    }

    void theFocusComesBackAfterACommand()
    {
        writePrepared(QStringLiteral("hello.txt"), "Hello");
        record();
        choose(QStringLiteral("hello.txt"));
        QWidget *button = m_house->find(newMessage);
        button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(m_house->mail.members().contains(makeMessage));
        QVERIFY(button->hasFocus());
    }

    void afterASentRecordingTheFocusIsOnRecord()
    {
        record();
        QWidget *button = m_house->find(newMessage);
        button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(!button->isEnabled());
        QVERIFY(m_house->find(QStringLiteral("Record"))->hasFocus());
    }
};

QTEST_MAIN(TestCompose)
#include "tst_compose.moc"
