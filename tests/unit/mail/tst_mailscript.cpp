#include "fakes/RecordingAlertPresenter.h"
#include "mail/ASMail.h"
#include "mail/MailScript.h"
#include "platform/linux/mail/DBusMailTransport.h"

#include <QFile>
#include <QIODevice>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using kest::findMailScript;
using namespace Qt::StringLiterals;

namespace {

const QString builtIn = QStringLiteral(":/ASMail.mjs");

} // namespace

/// Whose script is run: what others could have written never is.
class TestMailScript : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        m_folder = QFile::encodeName(m_home->path()) + "/kest";
        m_script = m_folder + "/ASMail.mjs";
        QCOMPARE(::mkdir(m_folder.constData(), 0755), 0);
    }

    void cleanup() { ::chmod(m_folder.constData(), 0755); }

    void withoutAnOwnScriptItIsTheSystems() { QCOMPARE(found(), builtIn); }

    void onesOwnScriptWinsWhenNobodyElseCanChangeIt()
    {
        write("// mine");
        QCOMPARE(found(), QFile::decodeName(m_script));
        QCOMPARE(findMailScript(m_home->path()).text, QByteArray("// mine"));
    }

    void aScriptOrFolderThatOthersCanWriteToIsRefused_data()
    {
        QTest::addColumn<int>("folderMode");
        QTest::addColumn<int>("fileMode");
        QTest::newRow("file, group") << 0755 << 0664;
        QTest::newRow("file, everybody") << 0755 << 0646;
        QTest::newRow("folder, group") << 0775 << 0644;
        QTest::newRow("folder, everybody") << 0757 << 0644;
        QTest::newRow("folder, everybody, sticky") << 01777 << 0644;
    }
    void aScriptOrFolderThatOthersCanWriteToIsRefused()
    {
        QFETCH(int, folderMode);
        QFETCH(int, fileMode);
        write("// anybody's", mode_t(fileMode));
        ::chmod(m_folder.constData(), mode_t(folderMode));
        verifyRefused();
    }

    void somebodyElsesScriptIsRefused_data()
    {
        QTest::addColumn<bool>("folder");
        QTest::newRow("file") << false;
        QTest::newRow("folder") << true;
    }
    void somebodyElsesScriptIsRefused()
    {
        QFETCH(bool, folder);
        constexpr uid_t nobody = 65534;
        write("// theirs");
        QVERIFY2(::chown(folder ? m_folder.constData() : m_script.constData(), nobody, nobody) == 0,
                 "only root can give a file away");
        verifyRefused();
    }

    void aLinkToAScriptIsRefused()
    {
        const QByteArray elsewhere = m_folder + "/elsewhere.mjs";
        write("// linked");
        QCOMPARE(::rename(m_script.constData(), elsewhere.constData()), 0);
        QCOMPARE(::symlink(elsewhere.constData(), m_script.constData()), 0);
        verifyRefused();
    }

    void aLinkToAFolderIsRefused()
    {
        write("// linked");
        const QByteArray elsewhere = m_folder + "-elsewhere";
        QCOMPARE(::rename(m_folder.constData(), elsewhere.constData()), 0);
        QCOMPARE(::symlink(elsewhere.constData(), m_folder.constData()), 0);
        verifyRefused();
    }

    void whatIsNoFileIsRefusedWithoutWaitingForIt()
    {
        QCOMPARE(::mkfifo(m_script.constData(), 0600), 0);
        verifyRefused();
        QCOMPARE(::unlink(m_script.constData()), 0);
        QCOMPARE(::mkdir(m_script.constData(), 0700), 0);
        verifyRefused();
    }

    void aMonstrousScriptIsRefused()
    {
        write(QByteArray(1024 * 1024, ' '));
        QCOMPARE(found(), QFile::decodeName(m_script));
        write(QByteArray(1024 * 1024 + 1, ' '));
        verifyRefused();
    }

    void aScriptThatIsSwappedAfterTheProgramsEntryDoesNotRun()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_home->path()));
        write("export function retrieveEmailAccounts() { return ['judged'] }");
        kest::ASMail::loadScriptObjects();
        kest::DBusMailTransport transport;
        kest::test::RecordingAlertPresenter alerts;
        kest::ASMail mail(transport, alerts);
        write("export function retrieveEmailAccounts() { return ['swapped'] }", 0666);
        QCOMPARE(mail.retrieveEmailAccounts(), std::optional(QStringList{u"judged"_s}));
        QVERIFY(alerts.shown.isEmpty());
    }

    void anEmptyScriptThatIsSwappedDoesNotRunEither()
    {
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_home->path()));
        write("");
        kest::ASMail::loadScriptObjects();
        kest::DBusMailTransport transport;
        kest::test::RecordingAlertPresenter alerts;
        kest::ASMail mail(transport, alerts);
        write("export function retrieveEmailAccounts() { return ['swapped'] }", 0666);
        QVERIFY(!mail.retrieveEmailAccounts());
    }

private:
    void write(const QByteArray &text, mode_t mode = 0644)
    {
        QFile file(QFile::decodeName(m_script));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        QCOMPARE(::chmod(m_script.constData(), mode), 0);
    }

    QString found() const { return findMailScript(m_home->path()).path; }

    void verifyRefused()
    {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"others could change it"_s));
        QCOMPARE(found(), builtIn);
    }

    std::unique_ptr<QTemporaryDir> m_home;
    QByteArray m_folder;
    QByteArray m_script;
};

QTEST_GUILESS_MAIN(TestMailScript)
#include "tst_mailscript.moc"
