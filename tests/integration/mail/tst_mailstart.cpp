#include "integration/mail/InstalledMail.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "platform/linux/mail/DefaultMailApplication.h"
#include "platform/linux/mail/MailErrors.h"
#include "support/FakeMail.h"

#include <QElapsedTimer>
#include <QFile>
#include <QIODevice>
#include <QSignalSpy>
#include <QTest>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

using namespace kest;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const MailCall accounts{QStringLiteral("/org/kest/Mail1"), QStringLiteral("org.kest.Mail1.Application"),
                        QStringLiteral("Accounts"), MailCall::Kind::Method, {}};

const QString fakeName = QStringLiteral("org.kest.Mail1.Fake");

MailErrorCode codeOf(const MailReply &reply)
{
    return reply.error ? static_cast<MailErrorCode>(reply.error->code) : MailErrorCode{};
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// Calls when no mail application serves: finding and starting one.
class TestMailStart : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_installed = std::make_unique<test::InstalledMail>(); }

    void cleanup()
    {
        m_fake.stop();
        if (test::isOnBus(fakeName))
            test::endOwner(fakeName);
        m_installed.reset();
    }

    void firstCallStartsTheDefaultMailApplicationAndWaitsForIt()
    {
        const QString starter = m_installed->script(u"slow start"_s, "sleep=$(command -v sleep)\n/bin/sleep 0.5\nexec '"
                                                        + test::FakeMail::program().toUtf8() + "' \"$@\"\n");
        m_installed->install(u"test-mail.desktop"_s, u"\""_s + starter + u"\" Fake %u"_s);
        m_installed->makeDefault(u"test-mail.desktop"_s);
        DBusMailTransport transport;
        const MailReply reply = transport.call(accounts);
        QVERIFY2(!reply.error, qPrintable(reply.error.value_or(Error()).description));
        QVERIFY(test::isOnBus(fakeName));
    }

    void startedMailApplicationInheritsNothingOdd()
    {
        const QString report = qEnvironmentVariable("HOME") + u"/report"_s;
        const QString starter = m_installed->script(
            u"report"_s, "{ /bin/ls /proc/self/fd; /usr/bin/env; /bin/grep SigIgn /proc/self/status; } > '"
                + report.toUtf8() + "'\nexec '" + test::FakeMail::program().toUtf8() + "'\n");
        m_installed->install(u"test-mail.desktop"_s, u"\""_s + starter + u"\""_s);
        m_installed->makeDefault(u"test-mail.desktop"_s);
        const int odd = ::fcntl(::open("/dev/null", O_RDONLY), F_DUPFD, 77); // without close-on-exec, as a library's may be
        qputenv("DESKTOP_STARTUP_ID", "ours");
        std::signal(SIGPIPE, SIG_IGN);
        DBusMailTransport transport;
        QVERIFY(!transport.call(accounts).error);
        ::close(odd);
        const QByteArray seen = contents(report);
        QVERIFY(!seen.contains("\n77\n"));
        QVERIFY(!seen.contains("DESKTOP_STARTUP_ID"));
        QVERIFY(seen.contains("DBUS_SESSION_BUS_ADDRESS="));
        const qulonglong ignored = seen.mid(seen.indexOf("SigIgn:") + 7).trimmed().toULongLong(nullptr, 16);
        QVERIFY(!(ignored & 1ULL << (SIGPIPE - 1)));
    }

    void mailApplicationWithoutTheAddOnIsSaidSoInBoundedTime()
    {
        m_installed->install(u"test-mail.desktop"_s, m_installed->script(u"nothing"_s, "exit 0\n"), u"Plain Mail"_s);
        m_installed->makeDefault(u"test-mail.desktop"_s);
        DBusMailTransport transport({.start = 1900ms, .startAgain = 50ms});
        QSignalSpy unreachable(&transport, &MailTransport::mailApplicationUnreachable);
        QElapsedTimer elapsed;
        elapsed.start();
        const MailReply first = transport.call(accounts);
        QCOMPARE(codeOf(first), MailErrorCode::NoAddOn);
        QVERIFY(first.error->description.contains(u"add-on"));
        QCOMPARE(first.error->failureReason, u"Plain Mail"_s);
        QVERIFY(elapsed.restart() >= 1900);
        QCOMPARE(codeOf(transport.call(accounts)), MailErrorCode::NoAddOn);
        QVERIFY2(elapsed.elapsed() < 1900, "the second time it waits for 50 ms only, not for the whole time again");
        QCOMPARE(unreachable.size(), 2);
    }

    void noMailApplicationAtAllIsSaidSoAtOnce()
    {
        DBusMailTransport transport;
        QElapsedTimer elapsed;
        elapsed.start();
        const MailReply reply = transport.call(accounts);
        QCOMPARE(codeOf(reply), MailErrorCode::NoApplication);
        QVERIFY(reply.error->description.contains(u"Install"));
        QVERIFY(elapsed.elapsed() < 2000);
    }

    // Numbers of messages are given anew by each run: what was meant might be another mail.
    void aCallAboutAMessageOfARunThatEndedStartsNoOther()
    {
        const QString started = qEnvironmentVariable("HOME") + u"/started anew"_s;
        const QString starter = m_installed->script(
            u"mark"_s, "echo > '" + started.toUtf8() + "'\nexec '" + test::FakeMail::program().toUtf8() + "' Fake\n");
        m_installed->install(u"test-mail.desktop"_s, u"\""_s + starter + u"\""_s);
        m_installed->makeDefault(u"test-mail.desktop"_s);
        const QString message = u"/org/kest/Mail1/message/1"_s;
        DBusMailTransport transport;
        const MailReply deleted = transport.call({message, u"org.kest.Mail1.Message"_s, u"Delete"_s, MailCall::Kind::Method, {}});
        QCOMPARE(codeOf(deleted), MailErrorCode::Vanished);
        const MailReply answered = transport.call(
            {u"/org/kest/Mail1"_s, u"org.kest.Mail1.Application"_s, u"Reply"_s, MailCall::Kind::Method,
             {message, u"text"_s, QString(), false, true, true, quint64(0), QVariantList()}});
        QCOMPARE(codeOf(answered), MailErrorCode::Vanished);
        QVERIFY(!QFile::exists(started));
        QVERIFY(!transport.call(accounts).error);
        QVERIFY(QFile::exists(started));
    }

    void runningMailApplicationIsUsedWithoutStartingAnother()
    {
        const QString started = qEnvironmentVariable("HOME") + u"/started"_s;
        const QString starter = m_installed->script(u"mark"_s, "echo > '" + started.toUtf8() + "'\n");
        m_installed->install(u"test-mail.desktop"_s, u"\""_s + starter + u"\""_s);
        m_installed->makeDefault(u"test-mail.desktop"_s);
        m_fake.start();
        DBusMailTransport transport;
        QVERIFY(!transport.call(accounts).error);
        QVERIFY(!QFile::exists(started));
    }

    void defaultMailApplicationIsPreferredAmongThoseThatRun()
    {
        m_installed->install(u"org.example.zulu.desktop"_s, u"/bin/true"_s);
        m_installed->makeDefault(u"org.example.zulu.desktop"_s);
        m_fake.start(u"Alpha"_s);
        test::FakeMail zulu;
        zulu.start(u"Zulu"_s);
        DBusMailTransport transport;
        QVERIFY(!transport.call(accounts).error);
        QCOMPARE(m_fake.log(), QStringList());
        QCOMPARE(zulu.log(), QStringList{u"Application.Accounts"_s});
        zulu.stop();
        const MailReply reply = transport.call(accounts);
        QVERIFY2(!reply.error, qPrintable(reply.error.value_or(Error()).description));
        QCOMPARE(m_fake.log(), QStringList{u"Application.Accounts"_s});
    }

    void defaultIsFoundByAssociationElseByClaim()
    {
        QVERIFY(!defaultMailApplication());
        m_installed->install(u"b.desktop"_s, u"/bin/b %U"_s);
        m_installed->install(u"a.desktop"_s, u"\"/opt/my mail/a\" --to \"%u\" 100%% -name=\\\\x"_s);
        m_installed->makeDefault(u"a.desktop"_s);
        const auto found = defaultMailApplication();
        QVERIFY(found);
        QCOMPARE(found->desktopId, u"a.desktop"_s);
        QCOMPARE(found->name, u"Test Mail"_s);
        QCOMPARE(found->command.first(), u"/opt/my mail/a"_s);
        m_installed->makeDefault(u"gone.desktop"_s);
        QVERIFY(!defaultMailApplication());
    }

    void execKeysAreTakenApart_data()
    {
        QTest::addColumn<QString>("exec");
        QTest::addColumn<QStringList>("command");
        QTest::newRow("field code") << u"/usr/bin/mail %u"_s << QStringList{u"/usr/bin/mail"_s};
        QTest::newRow("arguments") << u"mail -a  --b=c"_s << QStringList{u"mail"_s, u"-a"_s, u"--b=c"_s};
        QTest::newRow("quoted") << u"\"/opt/a b/mail\" \"c \\\"d\\\"\" %F"_s
                                << QStringList{u"/opt/a b/mail"_s, u"c \"d\""_s};
        QTest::newRow("percent") << u"mail 100%%"_s << QStringList{u"mail"_s, u"100%"_s};
        QTest::newRow("code in a word") << u"mail --to=%u"_s << QStringList{u"mail"_s, u"--to="_s};
        QTest::newRow("empty argument") << u"mail \"\""_s << QStringList{u"mail"_s, QString()};
        QTest::newRow("none") << QString() << QStringList();
    }
    void execKeysAreTakenApart()
    {
        QFETCH(QString, exec);
        QFETCH(QStringList, command);
        QCOMPARE(commandOfExecKey(exec), command);
    }

private:
    std::unique_ptr<test::InstalledMail> m_installed;
    test::FakeMail m_fake;
};

QTEST_GUILESS_MAIN(TestMailStart)
#include "tst_mailstart.moc"
