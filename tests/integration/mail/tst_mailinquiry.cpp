#include "integration/mail/InstalledMail.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "platform/linux/mail/MailErrors.h"
#include "support/FakeMail.h"

#include <QFile>
#include <QIODevice>
#include <QSignalSpy>
#include <QTest>

using namespace kest;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString fakeName = QStringLiteral("org.kest.Mail1.Fake");
constexpr int patience = 60'000; // ms

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// Asking in the background whether a mail application answers.
class TestMailInquiry : public QObject
{
    Q_OBJECT

private:
    test::FakeMail m_fake;
    std::unique_ptr<test::InstalledMail> m_installed;
    std::unique_ptr<DBusMailTransport> m_transport;
    std::unique_ptr<QObject> m_context;
    QList<std::optional<Error>> m_told;

    void inquire(MailTransport::Starting starting)
    {
        m_transport->inquire(starting, m_context.get(), [this](const std::optional<Error> &hindrance) {
            m_told.append(hindrance);
        });
    }

    MailErrorCode toldCode() const { return static_cast<MailErrorCode>(m_told.first().value_or(Error()).code); }

private Q_SLOTS:
    void init()
    {
        m_installed = std::make_unique<test::InstalledMail>();
        m_transport = std::make_unique<DBusMailTransport>(
            DBusMailTransport::Limits{.answer = 20s, .start = 20s, .startAgain = 1s});
        m_context = std::make_unique<QObject>();
        m_told.clear();
    }

    void cleanup()
    {
        m_transport.reset();
        m_fake.stop();
        if (test::isOnBus(fakeName))
            test::endOwner(fakeName);
        m_installed.reset();
    }

    void oneThatServesIsAskedWithoutMakingTheTransportBusy()
    {
        QSignalSpy appeared(m_transport.get(), &MailTransport::mailApplicationAppeared);
        m_fake.start();
        QTRY_COMPARE_WITH_TIMEOUT(appeared.size(), 1, patience);
        QSignalSpy busy(m_transport.get(), &MailTransport::busyChanged);
        inquire(MailTransport::Starting::Never);
        QTRY_COMPARE_WITH_TIMEOUT(m_told.size(), 1, patience);
        QVERIFY(!m_told.first());
        QVERIFY(busy.isEmpty());
        QCOMPARE(m_fake.log(), QStringList{u"Application.Accounts"_s});
    }

    void whereNoneServesNoneIsStartedUnlessAskedFor()
    {
        const QString trace = qEnvironmentVariable("HOME") + u"/started"_s;
        m_installed->install(u"test-mail.desktop"_s, m_installed->script(u"trace"_s, "echo x >> '" + trace.toUtf8() + "'\n"));
        m_installed->makeDefault(u"test-mail.desktop"_s);
        inquire(MailTransport::Starting::Never);
        QTRY_COMPARE_WITH_TIMEOUT(m_told.size(), 1, patience);
        QCOMPARE(toldCode(), MailErrorCode::NotRunning);
        // One that is asked for now leaves its trace after one that had been started before.
        inquire(MailTransport::Starting::WhereNone);
        QTRY_VERIFY_WITH_TIMEOUT(contents(trace).endsWith('\n'), patience);
        QCOMPARE(contents(trace), "x\n");
    }

    void oneIsStartedWhenAskedForAndToldWhenItAnswers()
    {
        m_installed->install(u"test-mail.desktop"_s, u"\""_s + test::FakeMail::program() + u"\" Fake"_s);
        m_installed->makeDefault(u"test-mail.desktop"_s);
        inquire(MailTransport::Starting::WhereNone);
        QVERIFY(m_told.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(m_told.size(), 1, patience);
        QVERIFY(!m_told.first());
        QVERIFY(test::isOnBus(fakeName));
    }

    void oneThatDoesNotComeUpIsToldInBoundedTime()
    {
        m_transport = std::make_unique<DBusMailTransport>(
            DBusMailTransport::Limits{.answer = 2s, .start = 2s, .startAgain = 2s});
        m_installed->install(u"test-mail.desktop"_s, m_installed->script(u"nothing"_s, "exit 0\n"));
        m_installed->makeDefault(u"test-mail.desktop"_s);
        inquire(MailTransport::Starting::WhereNone);
        QTRY_COMPARE_WITH_TIMEOUT(m_told.size(), 1, patience);
        QCOMPARE(toldCode(), MailErrorCode::NoAddOn);
    }

    void nothingToStartIsTold()
    {
        inquire(MailTransport::Starting::WhereNone);
        QTRY_COMPARE_WITH_TIMEOUT(m_told.size(), 1, patience);
        QVERIFY(toldCode() == MailErrorCode::NoApplication || toldCode() == MailErrorCode::NoAddOn);
    }

    void whoeverIsGoneIsNotTold()
    {
        m_fake.start();
        m_fake.freeze();
        inquire(MailTransport::Starting::Never);
        m_context.reset();
        m_fake.thaw();
        const MailCall selection{u"/org/kest/Mail1"_s, u"org.kest.Mail1.Application"_s, u"Selection"_s,
                                 MailCall::Kind::Method, {}};
        QVERIFY(!m_transport->call(selection).error);
        QVERIFY(m_told.isEmpty());
    }
};

QTEST_MAIN(TestMailInquiry)
#include "tst_mailinquiry.moc"
