#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "support/PrivateMounts.h"
#include "unit/app/SettingsScene.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>

#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace kest;
using kest::testing::SmallFileSystem;

namespace {

const QString bigA = QString(20000, u'a');
const QString bigB = QString(30000, u'b');

// What the child of the kill test does until it is killed.
[[noreturn]] void writeForEver(const QString &path)
{
    UserDefaults defaults(path);
    for (bool a = true;; a = !a)
        defaults.setObject(a ? bigA : bigB, SettingsKeys::tReplyBody);
}

} // namespace

class TestUserDefaultsOnDisk : public QObject, private kest::testing::SettingsScene
{
    Q_OBJECT

private Q_SLOTS:
    void aDamagedFileIsPutAsideAndSaidOnce()
    {
        const QString path = freshPath();
        const QByteArray damaged = QByteArray("[General]\nbSendReplies=tr") + QByteArray(100, '\0');
        QVERIFY(writeRaw(path, damaged));
        UserDefaults defaults(path);
        defaults.registerDefaults(defaultsToRegister("R", "A"));
        QSignalSpy troubles(&defaults, &UserDefaults::troubleOccurred);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bSendReplies), false);
        defaults.setBool(true, SettingsKeys::bSendReplies);
        QCOMPARE(troubles.count(), 1);
        QCOMPARE(damagedBeside(path).size(), 1);
        QCOMPARE(readRaw(QFileInfo(path).dir().filePath(damagedBeside(path)[0])), damaged);
        QVERIFY(troubles[0][0].toString().contains(damagedBeside(path)[0]));
        QCOMPARE(UserDefaults(path).boolForKey(SettingsKeys::bSendReplies), true);
    }

    void aFileDamagedWhileRunningIsPutAsideWithTheNextChange()
    {
        const QString path = freshPath();
        UserDefaults defaults(path);
        defaults.setBool(true, SettingsKeys::bSendReplies);
        QVERIFY(writeRaw(path, "nonsense"));
        QSignalSpy troubles(&defaults, &UserDefaults::troubleOccurred);
        defaults.setBool(true, SettingsKeys::bDeleteOriginals);
        QCOMPARE(troubles.count(), 1);
        QCOMPARE(damagedBeside(path).size(), 1);
        QCOMPARE(UserDefaults(path).boolForKey(SettingsKeys::bDeleteOriginals), true);
    }

    void aFullFolderIsSaidOnceAndTheProgramGoesOn()
    {
        const QString folder = dir.filePath(QStringLiteral("full"));
        QVERIFY(QDir().mkpath(folder));
        SmallFileSystem small(folder.toUtf8(), "size=64k");
        QVERIFY(small.isMounted());
        const QString path = folder + QStringLiteral("/settings.ini");
        UserDefaults(path).setObject(QStringLiteral("old"), SettingsKeys::tReplyBody);
        const QByteArray before = readRaw(path);
        small.fill();
        {
            UserDefaults defaults(path);
            QSignalSpy troubles(&defaults, &UserDefaults::troubleOccurred);
            defaults.setObject(bigA, SettingsKeys::tReplyBody);
            defaults.setObject(QStringLiteral("s"), SettingsKeys::tNewMessageSubject);
            QCOMPARE(troubles.count(), 1);
            QCOMPARE(defaults.objectForKey(SettingsKeys::tReplyBody).toString(), bigA);
            QCOMPARE(readRaw(path), before);
            small.makeRoom();
            defaults.setBool(true, SettingsKeys::bSendReplies);
            QCOMPARE(troubles.count(), 1);
        }
        UserDefaults later(path);
        QCOMPARE(later.objectForKey(SettingsKeys::tReplyBody).toString(), bigA);
        QCOMPARE(later.objectForKey(SettingsKeys::tNewMessageSubject).toString(), QStringLiteral("s"));
        QCOMPARE(QFileInfo(path).dir().entryList(QDir::Files).size(), 1);
    }

    void aReadOnlyFolderIsSaidOnceAndTheProgramGoesOn()
    {
        const QString folder = dir.filePath(QStringLiteral("readonly"));
        QVERIFY(QDir().mkpath(folder));
        SmallFileSystem small(folder.toUtf8(), "size=64k");
        const QString path = folder + QStringLiteral("/settings.ini");
        UserDefaults(path).setObject(QStringLiteral("old"), SettingsKeys::tReplyBody);
        QVERIFY(small.makeReadOnly());
        UserDefaults defaults(path);
        QSignalSpy troubles(&defaults, &UserDefaults::troubleOccurred);
        defaults.setObject(QStringLiteral("new"), SettingsKeys::tReplyBody);
        defaults.setObject(QStringLiteral("newer"), SettingsKeys::tReplyBody);
        QCOMPARE(troubles.count(), 1);
        QCOMPARE(defaults.objectForKey(SettingsKeys::tReplyBody).toString(), QStringLiteral("newer"));
        QCOMPARE(UserDefaults(path).objectForKey(SettingsKeys::tReplyBody).toString(), QStringLiteral("old"));
    }

    void whatCouldNotBeSavedIsSavedAtTheEndWhenThatWorksAgain()
    {
        const QString folder = dir.filePath(QStringLiteral("later"));
        QVERIFY(QDir().mkpath(folder));
        SmallFileSystem small(folder.toUtf8(), "size=64k");
        const QString path = folder + QStringLiteral("/settings.ini");
        QVERIFY(small.makeReadOnly());
        {
            UserDefaults defaults(path);
            defaults.setBool(true, SettingsKeys::bSendReplies);
            QVERIFY(small.makeWritable());
        }
        QCOMPARE(UserDefaults(path).boolForKey(SettingsKeys::bSendReplies), true);
    }

    void aFileThatCannotBeReadIsNeverWrittenOver()
    {
        const QString path = freshPath();
        QVERIFY(QDir().mkpath(path + QStringLiteral("/inside"))); // a folder in the file's place
        UserDefaults defaults(path);
        QSignalSpy troubles(&defaults, &UserDefaults::troubleOccurred);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bSendReplies), false);
        QCOMPARE(troubles.count(), 1);
        defaults.setBool(true, SettingsKeys::bSendReplies);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bSendReplies), true);
        QVERIFY(QFileInfo::exists(path + QStringLiteral("/inside")));
    }

    void aFileThatPermissionsHideIsSaidAndNotWrittenOver()
    {
        const QString path = freshPath();
        UserDefaults(path).setBool(true, SettingsKeys::bSendReplies);
        QVERIFY(QFile::setPermissions(path, {}));
        const pid_t child = ::fork();
        if (child == 0) {
            if (!kest::testing::dropCapabilities())
                ::_exit(2);
            UserDefaults defaults(path);
            QSignalSpy troubles(&defaults, &UserDefaults::troubleOccurred);
            const bool hidden = !defaults.boolForKey(SettingsKeys::bSendReplies);
            defaults.setBool(true, SettingsKeys::bDeleteOriginals);
            ::_exit(hidden && troubles.count() == 2 && damagedBeside(path).isEmpty() ? 0 : 1);
        }
        int status = 0;
        QCOMPARE(::waitpid(child, &status, 0), child);
        QCOMPARE(WEXITSTATUS(status), 0);
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(UserDefaults(path).boolForKey(SettingsKeys::bSendReplies), true);
        QCOMPARE(UserDefaults(path).boolForKey(SettingsKeys::bDeleteOriginals), false);
    }

    void fileAndFolderAreThePersonsAlone()
    {
        const QString path = dir.filePath(QStringLiteral("config/kest/private.ini"));
        const mode_t before = ::umask(0);
        UserDefaults(path).setBool(true, SettingsKeys::bSendReplies);
        ::umask(before);
        const auto modeOf = [](const QString &name) {
            struct stat status = {};
            return ::stat(QFile::encodeName(name).constData(), &status) == 0 ? status.st_mode & 07777 : 0;
        };
        QCOMPARE(modeOf(path), mode_t(0600));
        QCOMPARE(modeOf(QFileInfo(path).path()), mode_t(0700));
        QCOMPARE(modeOf(dir.filePath(QStringLiteral("config"))), mode_t(0700));
    }

    void aLinkedFileStaysALinkAndKeepsItsMode()
    {
        const QString path = freshPath();
        const QString real = dir.filePath(QStringLiteral("dotfiles/kest.ini"));
        QVERIFY(writeRaw(real, "[General]\n"));
        QVERIFY(QFile::setPermissions(real, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QVERIFY(QFile::link(real, path));
        UserDefaults(path).setBool(true, SettingsKeys::bSendReplies);
        QVERIFY(QFileInfo(path).isSymLink());
        QVERIFY(readRaw(real).contains("bSendReplies=true"));
        QCOMPARE(QFileInfo(real).permissions() & 0x0fff, QFile::Permissions(0x6640) & 0x0fff);
    }

    void aKilledWriterLeavesTheOldValueOrTheNewOne()
    {
        const QString path = freshPath();
        UserDefaults(path).setObject(bigA, SettingsKeys::tReplyBody);
        int seenA = 0;
        int seenB = 0;
        for (int round = 0; round < 40; ++round) {
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--write-for-ever"), path });
            QVERIFY(child.waitForStarted());
            const QByteArray before = readRaw(path);
            bool writes = false; // seen once is enough: the child goes back and forth
            QTRY_VERIFY((writes = writes || readRaw(path) != before));
            std::this_thread::sleep_for(std::chrono::microseconds(QRandomGenerator::global()->bounded(8000)));
            QCOMPARE(::kill(static_cast<pid_t>(child.processId()), SIGKILL), 0);
            QVERIFY(child.waitForFinished());
            UserDefaults later(path);
            QSignalSpy troubles(&later, &UserDefaults::troubleOccurred);
            const QString found = later.objectForKey(SettingsKeys::tReplyBody).toString();
            QVERIFY(found == bigA || found == bigB);
            QCOMPARE(troubles.count(), 0);
            ++(found == bigA ? seenA : seenB);
        }
        qInfo("old and new seen: %d and %d", seenA, seenB);
        UserDefaults(path).setObject(QStringLiteral("last"), SettingsKeys::tReplyBody);
        QCOMPARE(QFileInfo(path).dir().entryList(QDir::Files | QDir::Hidden).size(), 1); // nothing left about
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--write-for-ever") == 0)
        writeForEver(QString::fromUtf8(argv[2]));
    kest::testing::requirePrivateMounts();
    QCoreApplication app(argc, argv);
    TestUserDefaultsOnDisk test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_userdefaults_disk.moc"
