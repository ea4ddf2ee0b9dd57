#include "mail/PlainText.h"
#include "unit/mail/MailTestFiles.h"

#include <QtTest>

#include <sys/stat.h>

using namespace kest;
using namespace Qt::StringLiterals;

class TestPlainText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void encodingIsDetected_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("ASCII") << QByteArray("Hello") << u"Hello"_s;
        QTest::newRow("UTF-8") << QByteArray("Gr\xc3\xbc\xc3\x9f""e \xf0\x9f\x8e\x99") << u"Grüße 🎙"_s;
        QTest::newRow("UTF-8 with mark") << QByteArray("\xef\xbb\xbfHi") << u"Hi"_s;
        QTest::newRow("UTF-16 LE with mark") << QByteArray::fromHex("fffe4800fc00") << u"Hü"_s;
        QTest::newRow("UTF-16 BE with mark") << QByteArray::fromHex("feff004800fc") << u"Hü"_s;
        QTest::newRow("UTF-32 LE with mark") << QByteArray::fromHex("fffe000048000000") << u"H"_s;
        QTest::newRow("UTF-16 LE without mark") << QByteArray::fromHex("480065006c006c006f00") << u"Hello"_s;
        QTest::newRow("UTF-16 BE without mark") << QByteArray::fromHex("00480065006c006c006f") << u"Hello"_s;
        QTest::newRow("Latin-1") << QByteArray("Gr\xfc\xdf""e") << u"Grüße"_s;
        QTest::newRow("empty") << QByteArray() << QString();
        QTest::newRow("only a mark") << QByteArray::fromHex("fffe") << QString();
        QTest::newRow("with a NUL") << QByteArray("a\0b", 3) << u"a"_s + QChar() + u"b"_s;
    }
    void encodingIsDetected()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(plainText(bytes), text);
    }

    void lineEndsBecomeLineFeeds()
    {
        QCOMPARE(plainText("a\r\nb\rc\nd\r\n\r\n"), u"a\nb\nc\nd\n\n"_s);
    }

    void fileIsReadWhole()
    {
        QCOMPARE(plainTextOfFile(m_files.write("a.txt", "Hello"), nullptr), std::optional(u"Hello"_s));
        QCOMPARE(plainTextOfFile(m_files.write("empty.txt", ""), nullptr), std::optional(QString()));
    }

    void whatCannotBeReadSaysWhy_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("why");
        QTest::newRow("missing") << QByteArray("gone.txt") << u"No such file or directory"_s;
        QTest::newRow("folder") << QByteArray("folder.txt") << u"Is a directory"_s;
        QTest::newRow("pipe") << QByteArray("pipe.txt") << u"Invalid argument"_s;
        QTest::newRow("too large") << QByteArray("large.txt") << u"it is too large for a message's text"_s;
    }
    void whatCannotBeReadSaysWhy()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, why);
        ::mkdir(m_files.at("folder.txt").nativePath().constData(), 0700);
        ::mkfifo(m_files.at("pipe.txt").nativePath().constData(), 0600);
        m_files.write("large.txt", QByteArray(largestTextFile + 1, 'x'));
        Error error;
        QVERIFY(!plainTextOfFile(m_files.at(name), &error));
        QCOMPARE(error.description, why);
    }

    void largestFileIsStillRead()
    {
        const auto text = plainTextOfFile(m_files.write("largest.txt", QByteArray(largestTextFile, 'x')), nullptr);
        QVERIFY(text);
        QCOMPARE(text->size(), largestTextFile);
    }

private:
    test::MailTestFiles m_files;
};

QTEST_GUILESS_MAIN(TestPlainText)
#include "tst_plaintext.moc"
