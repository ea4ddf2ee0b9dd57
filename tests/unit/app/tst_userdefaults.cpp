#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "support/PrivateMounts.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

#include <csignal>
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

class TestUserDefaults : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    int m_count = 0;

    QString freshPath() { return m_dir.filePath(QStringLiteral("%1/kest/settings.ini").arg(++m_count)); }

    static void writeRaw(const QString &path, const QByteArray &bytes)
    {
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(bytes);
    }

    static QByteArray readRaw(const QString &path)
    {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    static QStringList damagedBeside(const QString &path)
    {
        return QFileInfo(path).dir().entryList({ QStringLiteral("*.damaged-*") });
    }

private Q_SLOTS:
    void everySettingReadsItsDefaultOnceRegistered()
    {
        UserDefaults defaults(freshPath());
        defaults.registerDefaults(defaultsToRegister("R", "A"));
        QCOMPARE(settingsTable().size(), size_t(14));
        for (const SettingsEntry &entry : settingsTable())
            QVERIFY2(defaults.objectForKey(entry.key).isValid(), qPrintable(entry.key));
        QCOMPARE(defaults.objectForKey(SettingsKeys::dAudioRecordingFolder).toByteArray(), QByteArray("R"));
        QCOMPARE(defaults.objectForKey(SettingsKeys::dAttachmentsFolder).toByteArray(), QByteArray("A"));
        QCOMPARE(defaults.boolForKey(SettingsKeys::bIncludeTagline), true);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bTrashNotDelete), true);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bSendReplies), false);
        QCOMPARE(defaults.integerForKey(SettingsKeys::iWhenToDelete), 0);
        QCOMPARE(defaults.objectForKey(SettingsKeys::emailAccountToUse).toString(), QStringLiteral("*none found*"));
    }

    void defaultTextsHaveTheirExactLengthsAndCharacters()
    {
        UserDefaults defaults(freshPath());
        defaults.registerDefaults(defaultsToRegister({}, {}));
        const QString body = defaults.objectForKey(SettingsKeys::tNewMessageBody).toString();
        const QString reply = defaults.objectForKey(SettingsKeys::tReplyBody).toString();
        QCOMPARE(body.size(), 89);
        QCOMPARE(reply.size(), 87);
        QCOMPARE(body.count(u'\n'), 2);
        QCOMPARE(reply.count(u'\n'), 2);
        QVERIFY(body.endsWith(QStringLiteral("\u201cemail\u201d\u2026")));
        QVERIFY(reply.endsWith(QStringLiteral("my reply\u2026")));
        QCOMPARE(defaults.objectForKey(SettingsKeys::tNewMessageSubject).toString(),
                 QStringLiteral("A voice email from (your name here)"));
    }

    void fifteenPairsAreRegisteredInTheirOrder()
    {
        QStringList keys;
        for (const auto &[key, value] : defaultsToRegister("R", "A"))
            keys << key;
        QCOMPARE(keys.join(u' '),
                 QStringLiteral("bIncludeTagline bDeleteOriginals bSendReplies dAudioRecordingFolder dAttachmentsFolder "
                                "tNewMessageSubject tNewMessageBody tReplyBody bIncludeTagline bWindowExpanded "
                                "bIncudeReplyToInName bTrashNotDelete iWhenToDelete useASClass emailAccountToUse"));
    }

    void useASClassIsTheNumberOneAndReadsAsTrue()
    {
        UserDefaults defaults(freshPath());
        defaults.registerDefaults(defaultsToRegister({}, {}));
        QCOMPARE(defaults.objectForKey(SettingsKeys::useASClass).typeId(), int(QMetaType::LongLong));
        QCOMPARE(defaults.boolForKey(SettingsKeys::useASClass), true);
    }

    void registeringWritesNothing()
    {
        const QString path = freshPath();
        {
            UserDefaults defaults(path);
            defaults.registerDefaults(defaultsToRegister("R", "A"));
            QCOMPARE(defaults.boolForKey(SettingsKeys::bIncludeTagline), true);
        }
        QVERIFY(!QFile::exists(path));
        QVERIFY(!QFile::exists(QFileInfo(path).path()));
    }

    void onlyWhatThePersonSetIsOnDisk()
    {
        const QString path = freshPath();
        UserDefaults defaults(path);
        defaults.registerDefaults(defaultsToRegister("R", "A"));
        defaults.setBool(true, SettingsKeys::bSendReplies);
        QVERIFY(readRaw(path).contains("bSendReplies=true"));
        QCOMPARE(readRaw(path).count('='), 1);
    }

    void aValueHidesTheDefaultUntilItIsRemoved()
    {
        UserDefaults defaults(freshPath());
        defaults.registerDefaults(defaultsToRegister("R", "A"));
        defaults.setObject(QByteArray("mine"), SettingsKeys::dAudioRecordingFolder);
        defaults.setBool(false, SettingsKeys::bIncludeTagline);
        QCOMPARE(defaults.objectForKey(SettingsKeys::dAudioRecordingFolder).toByteArray(), QByteArray("mine"));
        QCOMPARE(defaults.boolForKey(SettingsKeys::bIncludeTagline), false);
        defaults.setObject({}, SettingsKeys::dAudioRecordingFolder);
        defaults.setObject({}, SettingsKeys::bIncludeTagline);
        QCOMPARE(defaults.objectForKey(SettingsKeys::dAudioRecordingFolder).toByteArray(), QByteArray("R"));
        QCOMPARE(defaults.boolForKey(SettingsKeys::bIncludeTagline), true);
    }

    void valuesOutliveTheProcess()
    {
        const QString path = freshPath();
        const QString text = QStringLiteral("“a”\n\U0001f399");
        UserDefaults(path).setObject(text, SettingsKeys::tReplyBody);
        UserDefaults(path).setBool(true, SettingsKeys::bWindowExpanded);
        UserDefaults(path).setObject(3, SettingsKeys::iWhenToDelete);
        UserDefaults later(path);
        QCOMPARE(later.objectForKey(SettingsKeys::tReplyBody).toString(), text);
        QCOMPARE(later.boolForKey(SettingsKeys::bWindowExpanded), true);
        QCOMPARE(later.integerForKey(SettingsKeys::iWhenToDelete), 3);
    }

    void readsNothingAsFalseZeroAndInvalid()
    {
        UserDefaults defaults(freshPath());
        QCOMPARE(defaults.boolForKey(QStringLiteral("x")), false);
        QCOMPARE(defaults.integerForKey(QStringLiteral("x")), 0);
        QVERIFY(!defaults.objectForKey(QStringLiteral("x")).isValid());
        defaults.setObject(QStringLiteral("text"), QStringLiteral("x"));
        QCOMPARE(defaults.boolForKey(QStringLiteral("x")), false);
        QCOMPARE(defaults.integerForKey(QStringLiteral("x")), 0);
    }

    void tellsOfChangesOnly()
    {
        UserDefaults defaults(freshPath());
        defaults.registerDefaults(defaultsToRegister("R", "A"));
        QSignalSpy changed(&defaults, &UserDefaults::valueChanged);
        defaults.setBool(true, SettingsKeys::bIncludeTagline); // what the default says already
        QCOMPARE(changed.count(), 0);
        defaults.setBool(false, SettingsKeys::bIncludeTagline);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed[0][0].toString(), SettingsKeys::bIncludeTagline);
        defaults.setObject({}, SettingsKeys::bIncludeTagline);
        QCOMPARE(changed.count(), 2);
    }

    void refusesTypesThatSettingsDoNotHave()
    {
        const QString path = freshPath();
        UserDefaults defaults(path);
        QTest::ignoreMessage(QtWarningMsg, "No setting can hold a double");
        defaults.setObject(1.5, QStringLiteral("x"));
        QVERIFY(!QFile::exists(path));
    }

    void twoProcessesKeepEachOthersValues()
    {
        const QString path = freshPath();
        UserDefaults one(path);
        UserDefaults two(path);
        QVERIFY(!one.objectForKey(SettingsKeys::tReplyBody).isValid());
        QVERIFY(!two.objectForKey(SettingsKeys::tReplyBody).isValid());
        one.setObject(QStringLiteral("one"), SettingsKeys::tReplyBody);
        QSignalSpy changed(&two, &UserDefaults::valueChanged);
        two.setObject(QStringLiteral("two"), SettingsKeys::tNewMessageSubject);
        QCOMPARE(two.objectForKey(SettingsKeys::tReplyBody).toString(), QStringLiteral("one"));
        QCOMPARE(changed.count(), 2);
        UserDefaults later(path);
        QCOMPARE(later.objectForKey(SettingsKeys::tReplyBody).toString(), QStringLiteral("one"));
        QCOMPARE(later.objectForKey(SettingsKeys::tNewMessageSubject).toString(), QStringLiteral("two"));
    }

    void aDamagedFileIsPutAsideAndSaidOnce()
    {
        const QString path = freshPath();
        const QByteArray damaged = QByteArray("[General]\nbSendReplies=tr") + QByteArray(100, '\0');
        writeRaw(path, damaged);
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
        writeRaw(path, "nonsense");
        QSignalSpy troubles(&defaults, &UserDefaults::troubleOccurred);
        defaults.setBool(true, SettingsKeys::bDeleteOriginals);
        QCOMPARE(troubles.count(), 1);
        QCOMPARE(damagedBeside(path).size(), 1);
        QCOMPARE(UserDefaults(path).boolForKey(SettingsKeys::bDeleteOriginals), true);
    }

    void aFullFolderIsSaidOnceAndTheProgramGoesOn()
    {
        const QString folder = m_dir.filePath(QStringLiteral("full"));
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
        const QString folder = m_dir.filePath(QStringLiteral("readonly"));
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
        const QString folder = m_dir.filePath(QStringLiteral("later"));
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

    void aLinkedFileStaysALinkAndKeepsItsMode()
    {
        const QString path = freshPath();
        const QString real = m_dir.filePath(QStringLiteral("dotfiles/kest.ini"));
        writeRaw(real, "[General]\n");
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
    if (!kest::testing::enterPrivateMounts())
        qFatal("This machine lets no process have mounts of its own");
    QCoreApplication app(argc, argv);
    TestUserDefaults test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_userdefaults.moc"
