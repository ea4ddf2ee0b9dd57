#include "app/SettingsFormat.h"

#include <QTest>

using namespace kest;

class TestSettingsFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsComeBackAsTheyWere_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("looks like a boolean") << QStringLiteral("true");
        QTest::newRow("looks like a number") << QStringLiteral("12");
        QTest::newRow("lines and tabs") << QStringLiteral("a\n\tb\r\n\n");
        QTest::newRow("quotes and backslashes") << QStringLiteral("\"\\n\\\" \\u0041 \\");
        QTest::newRow("equals and comment signs") << QStringLiteral("# a=b; c");
        QTest::newRow("outer spaces") << QStringLiteral("  a  ");
        QTest::newRow("control characters") << QString(QChar(0)) + QChar(0x7f) + QChar(0x1b);
        QTest::newRow("line separators") << QString(QChar(0x2028)) + QChar(0x85) + QChar(0xfeff);
        QTest::newRow("emoji") << QStringLiteral("\U0001f399 “quoted” …");
        QTest::newRow("half an emoji") << QString(QChar(0xd83c)) + u'a' + QChar(0xdf99);
    }

    void textsComeBackAsTheyWere()
    {
        QFETCH(QString, text);
        const QString key = QStringLiteral("tReplyBody");
        const auto read = readSettings(writeSettings({ { key, text } }));
        QVERIFY(read);
        QCOMPARE(read->value(key).typeId(), int(QMetaType::QString));
        QCOMPARE(read->value(key).toString(), text);
    }

    void numbersBooleansAndBytesKeepTheirTypes()
    {
        QByteArray bytes("\0\xff)\n\"", 5);
        const SettingsMap settings { { QStringLiteral("a"), true }, { QStringLiteral("b"), false },
                                     { QStringLiteral("c"), qint64(-1) }, { QStringLiteral("d"), bytes },
                                     { QStringLiteral("e"), QByteArray() } };
        const auto read = readSettings(writeSettings(settings));
        QVERIFY(read);
        QCOMPARE(read->size(), settings.size());
        for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
            QCOMPARE(read->value(setting.key()).typeId(), setting->typeId());
            QCOMPARE(read->value(setting.key()), *setting);
        }
    }

    void aFileWrittenByHandIsRead()
    {
        const auto read = readSettings("; mine\r\n\r\n[General]\r\n bSendReplies = true \r\niWhenToDelete=3");
        QVERIFY(read);
        QCOMPARE(read->value(QStringLiteral("bSendReplies")), QVariant(true));
        QCOMPARE(read->value(QStringLiteral("iWhenToDelete")).toLongLong(), 3);
    }

    void damageIsSeen_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("empty file") << QByteArray();
        QTest::newRow("zeros, as after a power cut") << QByteArray(512, '\0');
        QTest::newRow("no group") << QByteArray("bSendReplies=true\n");
        QTest::newRow("a line that says nothing") << QByteArray("[General]\nbSendReplies\n");
        QTest::newRow("cut within a text") << QByteArray("[General]\ntReplyBody=\"Dear fri");
        QTest::newRow("cut within an escape") << QByteArray("[General]\ntReplyBody=\"Dear\\\"\n");
        QTest::newRow("cut within bytes") << QByteArray("[General]\ndAttachmentsFolder=@Bytes(S0");
        QTest::newRow("bytes that are none") << QByteArray("[General]\ndAttachmentsFolder=@Bytes(!!)\n");
        QTest::newRow("not UTF-8") << QByteArray("[General]\ntReplyBody=\"caf\xe9\"\n");
        QTest::newRow("a quote too many") << QByteArray("[General]\ntReplyBody=\"a\"b\"\n");
        QTest::newRow("an unknown escape") << QByteArray("[General]\ntReplyBody=\"\\q\"\n");
        QTest::newRow("a word for a value") << QByteArray("[General]\nbSendReplies=yes\n");
        QTest::newRow("a number too large") << QByteArray("[General]\niWhenToDelete=99999999999999999999\n");
        QTest::newRow("another group") << QByteArray("[General]\na=1\n[Other]\nb=1\n");
    }

    void damageIsSeen()
    {
        QFETCH(QByteArray, text);
        QVERIFY(!readSettings(text));
    }
};

QTEST_GUILESS_MAIN(TestSettingsFormat)
#include "tst_settingsformat.moc"
