#include "audio/KestLevelsView.h"
#include "gui/WindowHouse.h"
#include "ui/controls/ReadoutField.h"

#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

const QString record = QStringLiteral("Record");
const QString stop = QStringLiteral("Stop");

} // namespace

/// What the quiet place of the real window says of a recording.
class TestRecordingNotices : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    FakeAudioFileRecorder &recorder() { return *m_house->recorders.last(); }

    void compareRunning()
    {
        QVERIFY(controller().recordingActive());
        QVERIFY(controller().canReplyOrCompose());
        QVERIFY(controller().recordingExists());
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
    }

    void cleanup() { m_house.reset(); }

    void aRecorderThatCannotBeMadeIsToldInWords()
    {
        m_house->recorders.refuses = true;
        m_house->click(record);
        compareRunning();
        QCOMPARE(m_house->notice(), QStringLiteral("The recording could not be written."));
        m_house->clock.advance(5.0);
        QTRY_COMPARE(m_house->find<ReadoutField>(QStringLiteral("Recording Time"))->text(), QStringLiteral("00:05"));
        QCOMPARE(controller().levelsView()->powerFraction(), 1.0);
        QVERIFY(m_house->alerts.shown.isEmpty());
    }

    void troubles_data()
    {
        QTest::addColumn<int>("trouble");
        QTest::addColumn<QString>("words");
        const auto row = [](const char *name, RecordingTrouble trouble, const char *words) {
            QTest::newRow(name) << static_cast<int>(trouble) << QString::fromUtf8(words);
        };
        row("no server", RecordingTrouble::NoSoundServer, "No sound server answers, so nothing is recorded.");
        row("no microphone", RecordingTrouble::NoMicrophone, "No microphone was found, so nothing is recorded.");
        row("unplugged", RecordingTrouble::MicrophoneLost, "The microphone went away. The recording is kept.");
        row("server gone", RecordingTrouble::SoundServerLost, "The sound server ended. The recording is kept.");
        row("no sound", RecordingTrouble::NoSound, "The microphone gives no sound. What it gave is kept.");
        row("disk", RecordingTrouble::DiskFull, "The disk is full. The recording so far is kept.");
        row("file", RecordingTrouble::CannotWrite, "Writing failed. What was recorded before is kept.");
        row("encoder", RecordingTrouble::EncoderMissing, "The sound encoder is missing, so nothing is recorded.");
    }

    // Said in the quiet place; flags, time and alerts stay as they are.
    void troubles()
    {
        QFETCH(int, trouble);
        m_house->click(record);
        Q_EMIT recorder().troubleOccurred(static_cast<RecordingTrouble>(trouble), QStringLiteral("USB Mic"));
        QTEST(m_house->notice(), "words");
        QVERIFY(m_house->find(QStringLiteral("Notice"))->toolTip().contains(QStringLiteral("USB Mic")));
        compareRunning();
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(m_house->isEnabled(stop));
    }

    void aTroubleThatLeftNothingPromisesNothing_data()
    {
        QTest::addColumn<int>("trouble");
        QTest::addColumn<QString>("words");
        const auto row = [](const char *name, RecordingTrouble trouble, const char *words) {
            QTest::newRow(name) << static_cast<int>(trouble) << QString::fromUtf8(words);
        };
        row("no microphone", RecordingTrouble::NoMicrophone, "No microphone was found, so nothing is recorded.");
        row("unplugged", RecordingTrouble::MicrophoneLost, "The microphone went away, so nothing is recorded.");
        row("server gone", RecordingTrouble::SoundServerLost, "The sound server ended, so nothing is recorded.");
        row("no sound", RecordingTrouble::NoSound, "The microphone gives no sound; nothing is recorded.");
        row("disk", RecordingTrouble::DiskFull, "The disk is full, so nothing is recorded.");
        row("file", RecordingTrouble::CannotWrite, "The recording could not be written.");
    }

    void aTroubleThatLeftNothingPromisesNothing()
    {
        QFETCH(int, trouble);
        m_house->click(record);
        Q_EMIT recorder().troubleOccurred(static_cast<RecordingTrouble>(trouble), QStringLiteral("USB Mic"));
        recorder().finish(false);
        QTEST(m_house->notice(), "words");
        QVERIFY(m_house->find(QStringLiteral("Notice"))->toolTip().contains(QStringLiteral("USB Mic")));
    }

    void theNextRecordingClearsTheTroubleOfTheLast()
    {
        m_house->click(record);
        Q_EMIT recorder().troubleOccurred(RecordingTrouble::DiskFull, QString());
        m_house->click(stop);
        QCOMPARE(m_house->notice(), QStringLiteral("The disk is full. The recording so far is kept."));
        m_house->click(record);
        QCOMPARE(m_house->notice(), QStringLiteral("Recording"));
    }

    void theStatusIsSaidInWords()
    {
        QCOMPARE(m_house->notice(), QStringLiteral("Ready to record"));
        m_house->click(record);
        QCOMPARE(m_house->notice(), QStringLiteral("Recording"));
        m_house->click(QStringLiteral("Pause"));
        QCOMPARE(m_house->notice(), QStringLiteral("Paused"));
        m_house->click(QStringLiteral("Resume"));
        QCOMPARE(m_house->notice(), QStringLiteral("Recording"));
        m_house->click(stop);
        QCOMPARE(m_house->notice(), QStringLiteral("Recorded, ready to send"));
    }
};

QTEST_MAIN(TestRecordingNotices)
#include "tst_recordingnotices.moc"
