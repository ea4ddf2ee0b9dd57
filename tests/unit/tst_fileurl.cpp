#include "platform/FileURL.h"

#include <QTest>

using kest::FileURL;

class TestFileURL : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keepsBytesThatAreNotUtf8()
    {
        const QByteArray bytes("/tmp/caf\xe9/a");
        const FileURL url = FileURL::fromNativePath(bytes);
        QCOMPARE(url.nativePath(), bytes);
        QCOMPARE(url.deletingLastPathComponent().nativePath(), QByteArray("/tmp/caf\xe9"));
        QCOMPARE(url.displayPath(), QStringLiteral("/tmp/caf\ufffd/a"));
    }

    void pathTextTurnsBackIntoTheSameBytes()
    {
        for (const QByteArray &bytes : {QByteArray("/caf\xe9"), QByteArray("/a\xc3\xa9\xff\x80z"), QByteArray("/\xf0\x9f\x8e\x99"),
                                        QByteArray("/\xf0\x9f\x8e"), QByteArray("/\xed\xa0\x80"), QByteArray("/\xe2\x80\x8fx")})
            QCOMPARE(FileURL::fromPath(FileURL::fromNativePath(bytes).path()).nativePath(), bytes);
    }

    void appendsOneComponent()
    {
        QCOMPARE(FileURL::fromPath(QStringLiteral("/a/")).appendingPathComponent(QStringLiteral("b c%.m4a")).path(),
                 QStringLiteral("/a/b c%.m4a"));
        QCOMPARE(FileURL::fromPath(QStringLiteral("/")).appendingPathComponent(QStringLiteral("b")).path(),
                 QStringLiteral("/b"));
        QVERIFY(FileURL().appendingPathComponent(QStringLiteral("b")).isEmpty());
    }

    void pathExtension_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("extension");
        QTest::newRow("plain") << "/a/x.m4a" << "m4a";
        QTest::newRow("case kept") << "/a/x.TXT" << "TXT";
        QTest::newRow("none") << "/a.b/x" << "";
        QTest::newRow("dot file") << "/a/.m4a" << "";
        QTest::newRow("hidden with one") << "/a/.x.m4a" << "m4a";
    }

    void pathExtension()
    {
        QFETCH(QString, path);
        QFETCH(QString, extension);
        QCOMPARE(FileURL::fromPath(path).pathExtension(), extension);
    }
};

QTEST_GUILESS_MAIN(TestFileURL)
#include "tst_fileurl.moc"
