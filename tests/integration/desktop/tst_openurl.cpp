#include "fakes/RecordingMailTransport.h"
#include "platform/linux/desktop/LinuxWorkspace.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace kest;

// With the desktop's opener replaced by one that keeps what it is given.
class TestOpenUrl : public QObject
{
    Q_OBJECT

    test::RecordingMailTransport m_mail;
    LinuxWorkspace m_workspace { m_mail };
    QTemporaryDir m_programs;

    static QString opened() { return qEnvironmentVariable("KEST_TEST_ROOT") + QStringLiteral("/opened"); }

    void verifyOpens(const QUrl &url, const QByteArray &said)
    {
        QFile::remove(opened());
        QVERIFY(m_workspace.openURL(url));
        QTRY_VERIFY(QFile::exists(opened()));
        QFile file(opened());
        QVERIFY(file.open(QFile::ReadOnly));
        QCOMPARE(file.readAll(), said);
    }

private Q_SLOTS:
    void initTestCase()
    {
        QFile opener(m_programs.filePath(QStringLiteral("xdg-open")));
        QVERIFY(opener.open(QFile::WriteOnly));
        opener.write("#!/bin/sh\ncd \"$KEST_TEST_ROOT\" && printf %s \"$1\" > new && mv new opened\n");
        opener.close();
        QVERIFY(opener.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        qputenv("PATH", m_programs.path().toUtf8() + ':' + qgetenv("PATH"));
    }

    void aWebPageIsOpenedByTheDesktopsOwnProgram()
    {
        verifyOpens(QUrl(QStringLiteral("https://kest.example/a?b=c%20d")), "https://kest.example/a?b=c%20d");
    }

    void aFolderIsOpenedByTheDesktopsOwnProgram()
    {
        verifyOpens(QUrl::fromLocalFile(QStringLiteral("/tmp/a b")), "file:///tmp/a%20b");
    }
};

QTEST_MAIN(TestOpenUrl)
#include "tst_openurl.moc"
