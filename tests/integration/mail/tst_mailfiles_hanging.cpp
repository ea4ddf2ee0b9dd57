#include "platform/linux/mail/MailFileDescriptor.h"
#include "support/HangingFileSystem.h"
#include "support/PrivateMounts.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>

using namespace kest;

/// A file on a network folder whose server is gone.
class TestMailFilesHanging : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aFileThatDoesNotAnswerHoldsTheWindowUpForSecondsOnly()
    {
        const QTemporaryDir share;
        const testing::HangingFileSystem hanging(QFile::encodeName(share.path()));
        QVERIFY(hanging.isMounted());
        const FileURL file = FileURL::fromPath(share.filePath(QStringLiteral("a.m4a")));
        Error error;
        QElapsedTimer elapsed;
        elapsed.start();
        QVERIFY(!openedForHandOver(file, &error));
        QVERIFY2(elapsed.restart() < 10'000, "five seconds, and what a busy machine needs besides");
        QCOMPARE(error.code, ETIMEDOUT);
        QVERIFY(error.description.contains(QStringLiteral("a.m4a")));
        QVERIFY(!openedForHandOver(file, &error)); // it is known to hang
        QVERIFY(elapsed.elapsed() < 2'000);
    }
};

int main(int argc, char **argv)
{
    testing::requirePrivateMounts();
    QCoreApplication application(argc, argv);
    TestMailFilesHanging test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mailfiles_hanging.moc"
