#include "app/WelcomeMarker.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace kest;

class WelcomeMarkerTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_home;

    QString path(const QString &name) const { return m_home->filePath(name); }
    WelcomeMarker marker() const { return WelcomeMarker(path(QStringLiteral("config/settings.ini"))); }

    void put(const QString &name) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        QVERIFY(file.open(QFile::WriteOnly));
    }

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        qputenv("HOME", m_home->path().toUtf8());
        qputenv("XDG_STATE_HOME", path(QStringLiteral("state")).toUtf8());
    }

    void anEmptyHomeIsAFirstStart()
    {
        QVERIFY(marker().isFirstStart());
        QVERIFY(!QFile::exists(path(QStringLiteral("state")))); // looking leaves nothing
    }

    void afterTheMarkerItIsNoneAnyMore()
    {
        marker().write();
        QVERIFY(!marker().isFirstStart());
        QCOMPARE(QFileInfo(path(QStringLiteral("state/kest/welcomed"))).size(), 0);
        marker().write(); // a second time does no harm
        QVERIFY(!marker().isFirstStart());
    }

    void itsFoldersAreForThePersonAlone()
    {
        marker().write();
        for (const auto *folder : {"state", "state/kest"}) {
            struct stat status = {};
            QCOMPARE(::stat(qPrintable(path(QString::fromLatin1(folder))), &status), 0);
            QCOMPARE(status.st_mode & 07777, mode_t(0700));
        }
    }

    void whoeverHasSettingsWasThereBefore()
    {
        put(QStringLiteral("config/settings.ini"));
        QVERIFY(!marker().isFirstStart());
    }

    void whoeverHasRecordedWasThereBefore()
    {
        QDir().mkpath(path(QStringLiteral("state/kest/unfinished-recordings")));
        QVERIFY(!marker().isFirstStart());
    }

    void withoutAStateHomeItLiesInTheHome_data()
    {
        QTest::addColumn<QByteArray>("stateHome");
        QTest::newRow("none") << QByteArray();
        QTest::newRow("a relative one") << QByteArray("state");
    }

    void withoutAStateHomeItLiesInTheHome()
    {
        QFETCH(QByteArray, stateHome);
        qputenv("XDG_STATE_HOME", stateHome);
        marker().write();
        QVERIFY(QFile::exists(path(QStringLiteral(".local/state/kest/welcomed"))));
        QVERIFY(!marker().isFirstStart());
    }

    void oneThatCannotBeWrittenIsLogged()
    {
        put(QStringLiteral("state")); // a file where the folder should be
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^It cannot be remembered.*")));
        marker().write();
        QVERIFY(marker().isFirstStart());
    }
};

QTEST_GUILESS_MAIN(WelcomeMarkerTest)
#include "tst_welcomemarker.moc"
