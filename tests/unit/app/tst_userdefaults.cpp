#include "app/SettingsTable.h"
#include "app/UserDefaults.h"
#include "unit/app/SettingsScene.h"

#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>

using namespace kest;

class TestUserDefaults : public QObject, private kest::testing::SettingsScene
{
    Q_OBJECT

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
        QCOMPARE(defaults.boolForKey(SettingsKeys::bDeleteOriginals), false);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bSendReplies), false);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bWindowExpanded), false);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bIncudeReplyToInName), false);
        QCOMPARE(defaults.boolForKey(SettingsKeys::bTrashNotDelete), true);
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
        const QString beginning =
            QStringLiteral("Dear friend,\n\nI am trying to save on typing, so here is an audio recording of my ");
        QCOMPARE(body, beginning + QStringLiteral("\u201cemail\u201d\u2026"));
        QCOMPARE(reply, beginning + QStringLiteral("reply\u2026"));
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
};

QTEST_GUILESS_MAIN(TestUserDefaults)
#include "tst_userdefaults.moc"
