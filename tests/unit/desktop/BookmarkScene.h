#pragma once

#include "platform/linux/desktop/LinuxBookmarkStore.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>
#include <sys/stat.h>
#include <unistd.h>

namespace kest::testing {

/// Folders for bookmarks: every case has a home of its own, with the folder
/// Music/Kest.
class BookmarkScene : public QObject
{
    Q_OBJECT

protected:
    std::unique_ptr<QTemporaryDir> m_dir;
    LinuxBookmarkStore m_store;

    QByteArray path(const QByteArray &below) const { return m_dir->path().toUtf8() + '/' + below; }

    static FolderURL url(const QByteArray &native) { return FolderURL::fromNativePath(native); }

    /// A promise to the person: a look-up never blocks the window for longer.
    static constexpr int longestLookUp = 1000; // ms

    /// Birth times are no finer than the kernel's ticks of some milliseconds.
    static void waitForNextTick()
    {
        const qint64 tick = coarseTime();
        while (coarseTime() == tick) { }
    }

    void make(const QByteArray &below)
    {
        const QByteArray all = path(below);
        for (auto at = all.indexOf('/', 1); at > 0; at = all.indexOf('/', at + 1))
            ::mkdir(all.left(at).constData(), 0755);
        QVERIFY(::mkdir(all.constData(), 0755) == 0 || errno == EEXIST);
    }

    void move(const QByteArray &from, const QByteArray &to)
    {
        QCOMPARE(::rename(path(from).constData(), path(to).constData()), 0);
    }

    /// Of a folder that has been there for a while, as any has that a person chose: a folder that anybody else on this
    /// machine makes after its end, with the same inode number, has another birth time.
    QByteArray bookmarkOf(const QByteArray &below)
    {
        waitForNextTick();
        Error error;
        const auto data = m_store.bookmarkData(url(path(below)), &error);
        if (!data)
            qWarning("%s", qPrintable(error.description));
        return data.value_or(QByteArray());
    }

    void verifyResolves(const QByteArray &data, const QByteArray &native, bool stale)
    {
        Error error;
        QElapsedTimer timer;
        timer.start();
        const auto resolved = m_store.resolveBookmarkData(data, &error);
        QVERIFY(timer.elapsed() < longestLookUp);
        QVERIFY2(resolved, qPrintable(error.description));
        QCOMPARE(resolved->folder.nativePath(), native);
        QCOMPARE(resolved->isStale, stale);
        QVERIFY(error.description.isEmpty());
    }

    void verifyNotFound(const QByteArray &data, int code)
    {
        Error error;
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!m_store.resolveBookmarkData(data, &error));
        QVERIFY(timer.elapsed() < longestLookUp);
        QCOMPARE(error.domain, posixErrorDomain);
        QCOMPARE(error.code, code);
    }

    // Stale once: the bookmark that is made again is fresh.
    void verifyMovedTo(const QByteArray &data, const QByteArray &native)
    {
        verifyResolves(data, native, true);
        const auto again = m_store.bookmarkData(url(native), nullptr);
        QVERIFY(again);
        verifyResolves(*again, native, false);
    }

private:
    static qint64 coarseTime()
    {
        timespec time = {};
        ::clock_gettime(CLOCK_REALTIME_COARSE, &time);
        return qint64(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
    }

private Q_SLOTS:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        make("Music/Kest");
        qputenv("HOME", m_dir->path().toUtf8());
    }
};

} // namespace kest::testing
