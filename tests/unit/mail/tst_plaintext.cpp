#include "mail/PlainText.h"
#include "support/HangingFileSystem.h"
#include "support/PrivateMounts.h"
#include "unit/mail/MailTestFiles.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using namespace kest;
using namespace kest::testing;
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
        QTest::newRow("with a NUL") << QByteArray("a\0b", 3) << u"a\ufffdb"_s;
        QTest::newRow("UTF-16 with mark and a NUL") << QByteArray::fromHex("fffe410000004200") << u"A\ufffdB"_s;
        QTest::newRow("UTF-16 with mark, no Western letter") << QByteArray::fromHex("feff65e5672c") << u"日本"_s;
        QTest::newRow("UTF-16 with mark, a character above U+FFFF") << QByteArray::fromHex("fffe3cd899df") << u"🎙"_s;
        QTest::newRow("UTF-16 with mark, half a unit at the end") << QByteArray::fromHex("fffe480061") << u"H"_s;
        QTest::newRow("UTF-16 without mark, some letters beyond Latin-1")
            << QByteArray::fromHex("500072006500690073003a0020003500ac20") << u"Preis: 5€"_s;
        QTest::newRow("Windows-1252") << QByteArray("\x93""5 \x80\x94 \x96 na\xefve") << u"“5 €” – naïve"_s;
        QTest::newRow("Windows-1252, a byte that it leaves free") << QByteArray("\x81\xe9") << u"\u0081é"_s;
        QTest::newRow("UTF-8 cut off in a character") << QByteArray("caf\xc3") << u"cafÃ"_s;
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
        QCOMPARE(plainText(QByteArray::fromHex("fffe61000d000a006200")), u"a\nb"_s);
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
        QTest::newRow("link to itself") << QByteArray("loop.txt") << u"Too many levels of symbolic links"_s;
        QTest::newRow("link to another file") << QByteArray("swapped.txt") << u"Too many levels of symbolic links"_s;
        QTest::newRow("50 MB") << QByteArray("50MB.txt") << u"it is too large for a message's text"_s;
        QTest::newRow("one byte too large") << QByteArray("large.txt") << u"it is too large for a message's text"_s;
    }
    void whatCannotBeReadSaysWhy()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, why);
        ::mkdir(m_files.at("folder.txt").nativePath().constData(), 0700);
        ::mkfifo(m_files.at("pipe.txt").nativePath().constData(), 0600);
        const FileURL secret = m_files.write("secret", "nobody chose this");
        ::symlink(secret.nativePath().constData(), m_files.at("swapped.txt").nativePath().constData());
        ::symlink("loop.txt", m_files.at("loop.txt").nativePath().constData());
        m_files.write("50MB.txt", "");
        QCOMPARE(::truncate(m_files.at("50MB.txt").nativePath().constData(), 50'000'000), 0);
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

    void aShareThatDoesNotAnswerIsGivenUp()
    {
        QTemporaryDir share;
        const HangingFileSystem hanging(QFile::encodeName(share.path()));
        QVERIFY2(hanging.isMounted(), qPrintable(qt_error_string()));
        Error error;
        const FileURL file = FileURL::fromPath(share.filePath(u"a.txt"_s));
        QVERIFY(!plainTextOfFile(file, &error, std::chrono::milliseconds(100)));
        QCOMPARE(error.description, u"Connection timed out"_s);
    }

private:
    test::MailTestFiles m_files;
};

int main(int argc, char **argv)
{
    if (!enterPrivateMounts())
        return 1;
    QCoreApplication application(argc, argv);
    TestPlainText test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_plaintext.moc"
