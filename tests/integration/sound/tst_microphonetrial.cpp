#include "platform/MicrophoneTrial.h"
#include "platform/linux/sound/PulseSound.h"
#include "support/VirtualMicrophone.h"

#include <QDirIterator>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

constexpr int patience = 30'000; // ms
constexpr double ahead = 1.5;    // the FIFO never runs empty, so the servers put in no silence of their own
const QString builtIn = QStringLiteral("kest_microphone");

QStringList filesBelow(const QString &folder)
{
    QStringList files;
    QDirIterator entries(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext())
        files.append(entries.next());
    return files;
}

} // namespace

/// Whether somebody is heard, by real servers, and nothing stays behind.
class MicrophoneTrialTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void itNamesTheMicrophone();
    void theMicrophoneIsOpenOnlyWhileItListens();
    void aToneIsHeardAtItsLevel();
    void silenceIsNotHeard();
    void itListensForLongAndKeepsNothing();
    void aMicrophoneThatGoesAwayIsTold();
    void noMicrophoneIsTold();
    void aServerThatEndsIsTold();
    void oneThatIsStoppedAtOnceLeavesNoStreamOpen();
    void whatWasStoppedTellsNothingAndCanBeStartedAgain();

private:
    MicrophoneTrial &trial() const { return *m_sound->microphoneTrial; }
    static int openStreams() { return tellSoundServer("recorders").value(u"count").toInt(); }

    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<PulseSound> m_sound;
    std::unique_ptr<QSignalSpy> m_troubles;
};

void MicrophoneTrialTest::init()
{
    qRegisterMetaType<RecordingTrouble>();
    m_troubles.reset();
    m_sound.reset();
    tellSoundServer("kill");
    tellSoundServer("restart_with_microphone");
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_STATE_HOME", m_home->path().toLocal8Bit());
    m_sound = std::make_unique<PulseSound>(makePulseSound());
    m_troubles = std::make_unique<QSignalSpy>(&trial(), &MicrophoneTrial::troubleOccurred);
}

void MicrophoneTrialTest::itNamesTheMicrophone()
{
    QTRY_COMPARE_WITH_TIMEOUT(trial().microphone(), QStringLiteral("Built-in Microphone"), patience);
    tellSoundServer("remove_source", {{QStringLiteral("name"), builtIn}});
    QTRY_COMPARE_WITH_TIMEOUT(trial().microphone(), QString(), patience);
}

void MicrophoneTrialTest::theMicrophoneIsOpenOnlyWhileItListens()
{
    QTRY_VERIFY_WITH_TIMEOUT(!trial().microphone().isEmpty(), patience);
    QCOMPARE(openStreams(), 0);
    trial().start();
    QVERIFY(trial().isListening());
    QTRY_COMPARE_WITH_TIMEOUT(openStreams(), 1, patience);
    trial().stop();
    QVERIFY(!trial().isListening());
    QTRY_COMPARE_WITH_TIMEOUT(openStreams(), 0, patience);
}

void MicrophoneTrialTest::aToneIsHeardAtItsLevel()
{
    const VirtualMicrophone microphone(sine(1000, 0.1), 1, ahead); // -20 dBFS at its peak
    trial().start();
    QTRY_VERIFY_WITH_TIMEOUT(qAbs(trial().level() + 23.0F) <= 0.3F, patience);
    trial().stop();
    QCOMPARE(trial().level(), -160.0F);
}

void MicrophoneTrialTest::silenceIsNotHeard()
{
    const VirtualMicrophone microphone([](qint64, int) { return 0.0F; }, 1, ahead);
    trial().start();
    const qint64 before = microphone.frames();
    QTRY_VERIFY_WITH_TIMEOUT(microphone.frames() > before + 44100, patience);
    QVERIFY(trial().isListening());
    QVERIFY2(trial().level() < -90.0F, QByteArray::number(trial().level()).constData());
    QCOMPARE(m_troubles->size(), 0);
}

void MicrophoneTrialTest::itListensForLongAndKeepsNothing()
{
    const VirtualMicrophone microphone(sine(1000, 0.1), 1, ahead);
    trial().start();
    QTRY_VERIFY_WITH_TIMEOUT(microphone.frames() > 2 * 44100 && trial().level() > -30.0F, patience);
    QCOMPARE(m_troubles->size(), 0);
    trial().stop();
    m_sound->recorderFactory->waitForFinished(patience);
    QCOMPARE(filesBelow(m_home->path()), QStringList());
    QCOMPARE(filesBelow(QDir::homePath() + QStringLiteral("/Music")), QStringList());
}

void MicrophoneTrialTest::aMicrophoneThatGoesAwayIsTold()
{
    const VirtualMicrophone microphone(sine(1000, 0.1), 1, ahead);
    trial().start();
    QTRY_VERIFY_WITH_TIMEOUT(trial().level() > -30.0F, patience);
    tellSoundServer("remove_source", {{QStringLiteral("name"), builtIn}});
    QTRY_COMPARE_WITH_TIMEOUT(m_troubles->size(), 1, patience);
    QCOMPARE(m_troubles->first().first().value<RecordingTrouble>(), RecordingTrouble::MicrophoneLost);
    QVERIFY(!trial().isListening());
}

void MicrophoneTrialTest::noMicrophoneIsTold()
{
    QTRY_VERIFY_WITH_TIMEOUT(!trial().microphone().isEmpty(), patience);
    tellSoundServer("remove_source", {{QStringLiteral("name"), builtIn}});
    QTRY_VERIFY_WITH_TIMEOUT(trial().microphone().isEmpty(), patience);
    trial().start();
    QTRY_COMPARE_WITH_TIMEOUT(m_troubles->size(), 1, patience);
    QCOMPARE(m_troubles->first().first().value<RecordingTrouble>(), RecordingTrouble::NoMicrophone);
}

void MicrophoneTrialTest::aServerThatEndsIsTold()
{
    const VirtualMicrophone microphone(sine(1000, 0.1), 1, ahead);
    trial().start();
    QTRY_VERIFY_WITH_TIMEOUT(trial().level() > -30.0F, patience);
    tellSoundServer("kill");
    QTRY_COMPARE_WITH_TIMEOUT(m_troubles->size(), 1, patience);
    QCOMPARE(m_troubles->first().first().value<RecordingTrouble>(), RecordingTrouble::SoundServerLost);
}

void MicrophoneTrialTest::oneThatIsStoppedAtOnceLeavesNoStreamOpen()
{
    const VirtualMicrophone microphone(sine(1000, 0.1), 1, ahead);
    QTRY_VERIFY_WITH_TIMEOUT(!trial().microphone().isEmpty(), patience); // so that the stream is asked for at once
    for (int turn = 0; turn < 3; ++turn) {
        trial().start();
        trial().stop();
    }
    trial().start();
    QTRY_VERIFY_WITH_TIMEOUT(trial().level() > -30.0F, patience); // whatever was asked for before is there by now
    trial().stop();
    QTRY_COMPARE_WITH_TIMEOUT(openStreams(), 0, 5000);
}

void MicrophoneTrialTest::whatWasStoppedTellsNothingAndCanBeStartedAgain()
{
    trial().start();
    trial().stop();
    tellSoundServer("remove_source", {{QStringLiteral("name"), builtIn}});
    tellSoundServer("kill");
    tellSoundServer("restart_with_microphone");
    QTRY_VERIFY_WITH_TIMEOUT(!trial().microphone().isEmpty(), patience);
    trial().start();
    trial().start(); // a second call opens no second stream
    const VirtualMicrophone microphone(sine(1000, 0.1), 1, ahead);
    QTRY_VERIFY_WITH_TIMEOUT(trial().level() > -30.0F, patience);
    QCOMPARE(openStreams(), 1);
    QCOMPARE(m_troubles->size(), 0);
}

QTEST_GUILESS_MAIN(MicrophoneTrialTest)
#include "tst_microphonetrial.moc"
