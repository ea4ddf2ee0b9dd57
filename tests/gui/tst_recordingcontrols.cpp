#include "app/SettingsTable.h"
#include "audio/KestLevelsView.h"
#include "gui/WindowHouse.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/ReadoutField.h"
#include "ui/controls/RecordButton.h"

#include <QDateTime>
#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace kest;
using namespace kest::test;

namespace {

const QString record = QStringLiteral("Record");
const QString pauseName = QStringLiteral("Pause");
const QString resumeName = QStringLiteral("Resume");
const QString stop = QStringLiteral("Stop");
const QString newMessage = QStringLiteral("New Message");

} // namespace

/// Record, Pause, Resume and Stop in the real window.
class TestRecordingControls : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    FakeAudioFileRecorder &recorder() { return *m_house->recorders.last(); }
    QString shownTime() { return m_house->find<ReadoutField>(QStringLiteral("Recording Time"))->text(); }
    double level() { return controller().levelsView()->powerFraction(); }

    struct State {
        bool active;
        bool canCompose;
        bool exists;
    };

    void compareState(const State &expected)
    {
        QCOMPARE(controller().recordingActive(), expected.active);
        QCOMPARE(controller().canReplyOrCompose(), expected.canCompose);
        QCOMPARE(controller().recordingExists(), expected.exists);
    }

    void compareImages(const QString &image)
    {
        QCOMPARE(controller().pauseResumeButton()->image(), image);
        QCOMPARE(controller().pauseResumeButton()->alternateImage(), image + QStringLiteral("-alt"));
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void nothingIsRecordedAtFirst()
    {
        compareState({false, false, false});
        QCOMPARE(shownTime(), QStringLiteral("--:--"));
        QVERIFY(!controller().recordingStatusTimer());
        QVERIFY(!controller().audioRecorder());
        QVERIFY(m_house->isEnabled(record));
        QVERIFY(!m_house->isEnabled(pauseName));
        QVERIFY(!m_house->isEnabled(stop));
        QVERIFY(!m_house->isEnabled(newMessage));
        QVERIFY(!m_house->isEnabled(QStringLiteral("Reply")));
        QVERIFY(!m_house->isEnabled(QStringLiteral("Reply All")));
    }

    void recordStartsAFileNamedForTheMoment()
    {
        m_house->clock.setNow(QDateTime(QDate(2024, 3, 5), QTime(14, 7, 9)));
        m_house->click(record);
        QCOMPARE(recorder().url().path(),
                 m_house->delegate.recordings->path() + QStringLiteral("/2024-03-05_14-07-09.m4a"));
        compareState({true, true, true});
        QVERIFY(controller().recordingStatusTimer()->isActive());
        QCOMPARE(controller().recordingStatusTimer()->interval(), 100);
        QVERIFY(!m_house->isEnabled(record));
        QVERIFY(m_house->isEnabled(pauseName));
        QVERIFY(m_house->isEnabled(stop));
        QVERIFY(m_house->isEnabled(newMessage));
    }

    void pressingRecordDownWarmsTheInputUp()
    {
        QTest::mousePress(m_house->find(record), Qt::LeftButton);
        QCOMPARE(m_house->recorders.warmUps, 1);
        QVERIFY(m_house->recorders.made.isEmpty());
        QTest::mouseRelease(m_house->find(record), Qt::LeftButton);
        QCOMPARE(m_house->recorders.made.size(), 1);
    }

    void theFirstTickShowsTimeAndLevelNotRecordItself()
    {
        m_house->click(record);
        QCOMPARE(shownTime(), QStringLiteral("--:--"));
        m_house->clock.advance(7.0);
        recorder().setAveragePower(0, -35.0F);
        QTRY_COMPARE(shownTime(), QStringLiteral("00:07"));
        QCOMPARE(level(), 0.5);
    }

    void pauseFreezesTimeAndLevel()
    {
        m_house->click(record);
        recorder().setAveragePower(0, -35.0F);
        QTRY_COMPARE(level(), 0.5);
        m_house->clock.advance(9.0);
        m_house->click(pauseName);
        QCOMPARE(shownTime(), QStringLiteral("00:09"));
        compareState({true, true, true});
        compareImages(QStringLiteral("resume"));
        QVERIFY(!controller().recordingStatusTimer() || !controller().recordingStatusTimer()->isActive());
        m_house->clock.advance(9.0);
        recorder().setAveragePower(0, -70.0F);
        QTest::qWait(250); // two ticks, if there were any
        QCOMPARE(shownTime(), QStringLiteral("00:09"));
        QCOMPARE(level(), 0.5);
    }

    void resumeGoesOnFromWhatWasRecorded()
    {
        m_house->click(record);
        m_house->clock.advance(10.0);
        recorder().setCurrentTime(10.0);
        m_house->click(pauseName);
        m_house->clock.advance(30.0);
        m_house->click(resumeName);
        compareImages(QStringLiteral("pause"));
        QVERIFY(controller().recordingStatusTimer()->isActive());
        m_house->clock.advance(5.0);
        QTRY_COMPARE(shownTime(), QStringLiteral("00:15"));
    }

    void stopEmptiesTheMeterAndKeepsTheRecording()
    {
        m_house->click(record);
        recorder().setAveragePower(0, -35.0F);
        QTRY_COMPARE(level(), 0.5);
        m_house->click(stop);
        compareState({false, false, true});
        QCOMPARE(shownTime(), QStringLiteral("--:--"));
        QCOMPARE(level(), 0.0);
        QVERIFY(!controller().recordingStatusTimer() || !controller().recordingStatusTimer()->isActive());
        QVERIFY(m_house->recorders.calls.contains(QStringLiteral("stop")));
        QVERIFY(m_house->isEnabled(record));
        QVERIFY(!m_house->isEnabled(stop));
        QVERIFY(m_house->isEnabled(newMessage));
    }

    void pauseThenStopLeavesTheButtonAtResume()
    {
        m_house->click(record);
        m_house->click(pauseName);
        m_house->click(stop);
        QCOMPARE(shownTime(), QStringLiteral("--:--"));
        QCOMPARE(level(), 0.0);
        compareImages(QStringLiteral("resume"));
    }

    // The picture stays, the name says what a press does.
    void afterPauseAndStopANewRecordingCanBePausedByName()
    {
        m_house->click(record);
        m_house->click(pauseName);
        m_house->click(stop);
        m_house->clock.advance(60.0);
        m_house->click(record);
        compareImages(QStringLiteral("resume"));
        m_house->click(pauseName);
        QVERIFY(controller().audioRecorder()->recordingPaused());
    }

    void pauseBeforeAnyRecordEmptiesTheTime()
    {
        controller().audioRecordingPauseResume();
        compareImages(QStringLiteral("resume"));
        QVERIFY(controller().recordingTime().isNull());
        QCOMPARE(shownTime(), QString());
        QVERIFY(!controller().audioRecorder());
    }

    void stopBeforeAnyRecordEmptiesTimeAndMeter()
    {
        controller().setCanReplyOrCompose(true);
        controller().levelsView()->updatePowerLevel(-10.0F);
        controller().audioRecordingStop();
        QVERIFY(controller().recordingTime().isNull());
        QCOMPARE(level(), 0.0);
        compareState({false, false, false});
    }

    void aSecondStopChangesNothing()
    {
        m_house->click(record);
        m_house->click(stop);
        controller().audioRecordingStop();
        compareState({false, false, true});
        QCOMPARE(shownTime(), QStringLiteral("--:--"));
    }

    void recordWhileRecordingDropsTheOldRecorderAndLeavesItsTimer()
    {
        m_house->click(record);
        const QPointer<QTimer> oldTimer = controller().recordingStatusTimer();
        const FileURL oldFile = recorder().url();
        m_house->clock.advance(3.0);
        controller().audioRecordingRecord();
        QVERIFY(!m_house->recorders.made.first());
        QVERIFY(!m_house->recorders.calls.contains(QStringLiteral("stop")));
        QVERIFY(recorder().url() != oldFile);
        QVERIFY(oldTimer && oldTimer->isActive());
        QVERIFY(controller().recordingStatusTimer() != oldTimer);
        QVERIFY(controller().recordingStatusTimer()->isActive());
        controller().audioRecordingStop();
        QVERIFY(oldTimer && oldTimer->isActive());
        QSignalSpy ticks(oldTimer, &QTimer::timeout);
        QTRY_VERIFY(ticks.size() > 1);
        QCOMPARE(shownTime(), QStringLiteral("--:--"));
        QCOMPARE(level(), 0.0);
    }

    void aClockThatIsSetMovesTheNextNameAndNotTheTime_data()
    {
        QTest::addColumn<QDateTime>("set");
        QTest::newRow("forward") << QDateTime(QDate(2024, 3, 6), QTime(9, 0, 0));
        QTest::newRow("back") << QDateTime(QDate(2023, 12, 31), QTime(23, 59, 58));
    }

    void aClockThatIsSetMovesTheNextNameAndNotTheTime()
    {
        QFETCH(QDateTime, set);
        m_house->click(record);
        m_house->clock.advance(5.0);
        m_house->clock.setNow(set);
        controller().audioRecordingUpdateTimeWithTimer();
        QCOMPARE(shownTime(), QStringLiteral("00:05"));
        m_house->click(stop);
        m_house->click(record);
        QCOMPARE(QString(recorder().url().lastPathComponent()),
                 set.toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss")) + QStringLiteral(".m4a"));
    }

    void theStatusTimerEndsWithTheController()
    {
        m_house->click(record);
        const QPointer<QTimer> timer = controller().recordingStatusTimer();
        QVERIFY(timer->isActive());
        m_house->controller.reset();
        QVERIFY(!timer);
    }

    void twoRecordingsOfOneSecondDoNotShareAFile()
    {
        m_house->click(record);
        m_house->click(stop);
        m_house->click(record);
        QCOMPARE(QString(recorder().url().lastPathComponent()), QStringLiteral("2024-03-05_14-07-10.m4a"));
        QVERIFY(QFile::exists(m_house->delegate.recordings->path() + QStringLiteral("/2024-03-05_14-07-09.m4a")));
    }

    void aMissingFolderIsToldOnceAndMakesNoRecorder()
    {
        m_house->delegate.recordings.reset();
        controller().setAttachmentName(QStringLiteral("a.txt"));
        m_house->click(record);
        QCOMPARE(m_house->beeps, 1);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        const AlertContent alert = m_house->alerts.shown.first();
        QCOMPARE(alert.messageText, QStringLiteral("Directory not found"));
        QCOMPARE(alert.informativeText, QStringLiteral("You need to go into Preferences and choose the directory "
                                                       "recordings should be saved to."));
        QCOMPARE(alert.buttons, QStringList(QStringLiteral("Cancel")));
        compareState({false, true, false});
        QVERIFY(controller().attachmentName().isNull());
        QVERIFY(!controller().audioRecorder());
        QVERIFY(!controller().recordingStatusTimer());
        QCOMPARE(shownTime(), QStringLiteral("--:--"));
    }

    void recordWithdrawsTheChoiceOfAPreparedMessage()
    {
        controller().setAttachmentName(QStringLiteral("a.txt"));
        m_house->click(record);
        QVERIFY(controller().attachmentName().isNull());
    }

    void everyChangeIsAnnounced()
    {
        QSignalSpy active(&controller(), &MainWindowController::recordingActiveChanged);
        QSignalSpy exists(&controller(), &MainWindowController::recordingExistsChanged);
        QSignalSpy can(&controller(), &MainWindowController::canReplyOrComposeChanged);
        QSignalSpy time(&controller(), &MainWindowController::recordingTimeChanged);
        m_house->click(record);
        controller().audioRecordingUpdateTimeWithTimer();
        m_house->click(stop);
        QCOMPARE(active, QList<QVariantList>({{true}, {false}}));
        QCOMPARE(exists, QList<QVariantList>({{true}}));
        QCOMPARE(can, QList<QVariantList>({{true}, {false}}));
        QCOMPARE(time, QList<QVariantList>({{QStringLiteral("00:00")}, {QStringLiteral("--:--")}}));
    }

    void theKeyboardRecordsPausesAndStops()
    {
        QWidget *window = controller().window();
        QTest::keyClick(window, Qt::Key_R, Qt::ControlModifier);
        QVERIFY(controller().recordingActive());
        QTest::keyClick(window, Qt::Key_P, Qt::ControlModifier);
        QVERIFY(controller().audioRecorder()->recordingPaused());
        QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!controller().recordingActive());
    }

    // A second press of the same key pauses; it must not send anything.
    void theFocusGoesFromRecordToPause()
    {
        QWidget *button = m_house->find(record);
        button->setFocus(Qt::TabFocusReason);
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(controller().recordingActive());
        QVERIFY(m_house->find(pauseName)->hasFocus());
    }

    void theRecordControlIsLitWhileRecording()
    {
        auto *button = m_house->find<RecordButton>(record);
        m_house->click(record);
        QVERIFY(button->onAir());
        QVERIFY(!button->held());
        m_house->click(pauseName);
        QVERIFY(button->held());
        m_house->click(stop);
        QVERIFY(!button->onAir());
    }
};

QTEST_MAIN(TestRecordingControls)
#include "tst_recordingcontrols.moc"
