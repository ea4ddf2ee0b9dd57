// The system gives no further thread, as at a limit for a person's processes.

#include "RecorderBench.h"

#include "platform/linux/sound/RecordingJobs.h"
#include "platform/linux/sound/RecordingJournal.h"
#include "support/VirtualMicrophone.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>

using namespace kest;
using namespace kest::test;

namespace {

constexpr int anyNumber = 1'000'000;
std::atomic<int> threadsLeft = anyNumber;

void expectWarning(const QString &beginning)
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u'^' + beginning)); // the case fails where it does not come
}

} // namespace

// Before the C library's own: the program exports its symbols.
extern "C" int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *), void *argument)
{
    static const auto real = reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return --threadsLeft < 0 ? EAGAIN : real(thread, attributes, start, argument);
}

class NoThreadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { threadsLeft = anyNumber; }
    void aJobWithoutAThreadIsNotWaitedFor();
    void aRecordingWithoutAThreadIsSaidToFailAndTheNextOneWorks();
    void theLastThreadIsEnoughForARecording();
    void aStartWithoutThreadsGoesOn();

private:
    static QString remembered() { return qEnvironmentVariable("XDG_STATE_HOME") + QStringLiteral("/kest/unfinished-recordings"); }

    const VirtualMicrophone m_microphone{sine(440, 0.3)};
};

void NoThreadTest::aJobWithoutAThreadIsNotWaitedFor()
{
    const auto jobs = std::make_shared<RecordingJobs>();
    threadsLeft = 0;
    QVERIFY_THROWS_EXCEPTION(std::system_error, jobs->run([] { }));
    QVERIFY(jobs->waitForAll(0));
}

void NoThreadTest::aRecordingWithoutAThreadIsSaidToFailAndTheNextOneWorks()
{
    RecorderBench bench;
    QVERIFY(bench.waitUntilConnected());
    AudioFileRecorder &recorder = bench.make();
    threadsLeft = 0;
    QVERIFY(!recorder.prepareToRecord());
    QVERIFY(!recorder.record());
    threadsLeft = anyNumber;
    QTRY_COMPARE(bench.trouble->count(), 1);
    QCOMPARE(bench.trouble->first().first().value<RecordingTrouble>(), RecordingTrouble::CannotWrite);
    QCOMPARE(recorder.currentTime(), 0.0);
    QVERIFY(QDir(bench.folder.path()).isEmpty(QDir::Files | QDir::Hidden));
    QVERIFY(QDir(remembered()).isEmpty(QDir::Files));
    QVERIFY(bench.sound.recorderFactory->waitForFinished(0));
    QVERIFY(bench.recordFor(0.5));
}

void NoThreadTest::theLastThreadIsEnoughForARecording()
{
    RecorderBench bench;
    QVERIFY(bench.waitUntilConnected());
    AudioFileRecorder &recorder = bench.make();
    threadsLeft = 1;
    expectWarning(QStringLiteral("A power cut would cost more"));
    QVERIFY(recorder.prepareToRecord());
    QVERIFY(recorder.record());
    QVERIFY(bench.waitForCapture(0.5));
    QVERIFY(threadsLeft < 0); // one more was asked for
    QVERIFY(bench.stopRecording());
    QCOMPARE(bench.trouble->count(), 0);
    QVERIFY(decoded(recorder.url()).size() > 44100 / 2);
}

void NoThreadTest::aStartWithoutThreadsGoesOn()
{
    RecorderBench bench;
    const FileURL unfinished = bench.folder.appendingPathComponent(QStringLiteral("unfinished.m4a"));
    QVERIFY(RecordingJournal(QFile::encodeName(remembered())).announce(unfinished)); // and forgotten, as in a crash
    threadsLeft = 0;
    expectWarning(QStringLiteral("The encoder is loaded only when"));
    bench.sound.recorderFactory->preload();
    expectWarning(QStringLiteral("Unfinished recordings wait"));
    QCOMPARE(bench.sound.recorderFactory->finishInterruptedRecordings({}, 0), 0);
    QVERIFY(threadsLeft <= -2); // both asked
    threadsLeft = anyNumber;
    QVERIFY(bench.recordFor(0.5));
}

QTEST_GUILESS_MAIN(NoThreadTest)
#include "tst_nothread.moc"
