// The system gives no further thread, as at a limit for a person's processes.

#include "RecorderBench.h"

#include "platform/linux/sound/RecordingJobs.h"
#include "support/VirtualMicrophone.h"

#include <QTest>

#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>

using namespace kest;
using namespace kest::test;

namespace {

std::atomic<bool> noThreads = false;

} // namespace

// Before the C library's own: the program exports its symbols.
extern "C" int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *), void *argument)
{
    static const auto real = reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
    return noThreads ? EAGAIN : real(thread, attributes, start, argument);
}

class NoThreadTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { noThreads = false; }
    void aJobWithoutAThreadIsNotWaitedFor();
    void aRecordingWithoutAThreadIsSaidToFailAndTheNextOneWorks();

private:
    const VirtualMicrophone m_microphone{sine(440, 0.3)};
};

void NoThreadTest::aJobWithoutAThreadIsNotWaitedFor()
{
    const auto jobs = std::make_shared<RecordingJobs>();
    noThreads = true;
    QVERIFY_THROWS_EXCEPTION(std::system_error, jobs->run([] { }));
    QVERIFY(jobs->waitForAll(0));
}

void NoThreadTest::aRecordingWithoutAThreadIsSaidToFailAndTheNextOneWorks()
{
    RecorderBench bench;
    QVERIFY(bench.waitUntilConnected());
    AudioFileRecorder &recorder = bench.make();
    noThreads = true;
    QVERIFY(!recorder.prepareToRecord());
    QVERIFY(!recorder.record());
    noThreads = false;
    QTRY_COMPARE(bench.trouble->count(), 1);
    QCOMPARE(bench.trouble->first().first().value<RecordingTrouble>(), RecordingTrouble::CannotWrite);
    QCOMPARE(recorder.currentTime(), 0.0);
    QVERIFY(bench.sound.recorderFactory->waitForFinished(0));
    QVERIFY(bench.recordFor(0.5));
}

QTEST_GUILESS_MAIN(NoThreadTest)
#include "tst_nothread.moc"
