#include "integration/mail/InstalledMail.h"
#include "platform/linux/mail/DBusMailConnection.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "support/FakeMail.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using namespace kest;
using namespace Qt::StringLiterals;

using Kind = MailConnectionState::Kind;

namespace {

constexpr int patience = 30'000; // ms
const QString addOn = QStringLiteral("kest@kest.invalid.xpi");

} // namespace

/// How the connection is found out: by the bus, and by the files of Thunderbird.
class TestMailConnection : public QObject
{
    Q_OBJECT

    test::FakeMail m_fake;
    std::unique_ptr<test::InstalledMail> m_installed;
    std::unique_ptr<QTemporaryDir> m_home;
    std::unique_ptr<DBusMailTransport> m_transport;
    std::unique_ptr<DBusMailConnection> m_connection;
    QStringList m_command;

    QString at(const QString &path) const { return m_home->filePath(path); }

    void write(const QString &path, const QByteArray &text = {}) const
    {
        QVERIFY(QDir().mkpath(QFileInfo(at(path)).path()));
        QFile file(at(path));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(text);
    }

    void makeProfile() const
    {
        QVERIFY(QDir().mkpath(at(u"profiles/a.default"_s)));
        write(u"profiles/profiles.ini"_s, "[Profile0]\nName=default\nIsRelative=1\nPath=a.default\nDefault=1\n");
    }

    void installThunderbird(const QString &program = u"thunderbird"_s) const
    {
        m_installed->install(u"thunderbird.desktop"_s, program + u" %u"_s, u"Thunderbird"_s);
        m_installed->makeDefault(u"thunderbird.desktop"_s);
    }

    ThunderbirdAddOn addOnHere() const
    {
        return ThunderbirdAddOn({{at(u"system"_s)}, {at(u"profiles"_s)}, m_command});
    }

    void open()
    {
        m_transport = std::make_unique<DBusMailTransport>();
        m_connection = std::make_unique<DBusMailConnection>(m_transport->services(), addOnHere());
    }

    Kind lookedAt()
    {
        open();
        m_connection->look();
        return m_connection->state().kind;
    }

private Q_SLOTS:
    void init()
    {
        m_installed = std::make_unique<test::InstalledMail>();
        m_home = std::make_unique<QTemporaryDir>();
        m_command.clear();
    }

    void cleanup()
    {
        m_connection.reset();
        m_transport.reset();
        m_fake.stop();
        m_installed.reset();
    }

    void oneThatServesIsConnectedWithItsAccounts()
    {
        m_fake.start();
        m_fake.configure({{u"accounts"_s, QJsonArray{QJsonArray{u"1"_s, u"Home"_s, u"Me <me@example.org>"_s},
                                                     QJsonArray{u"2"_s, u"Club"_s, u"Me <me@example.com>"_s}}}});
        open();
        QTRY_COMPARE_WITH_TIMEOUT(m_connection->state().accounts, (QStringList{u"Home"_s, u"Club"_s}), patience);
        QCOMPARE(m_connection->state().kind, Kind::Connected);
        QCOMPARE(m_connection->state().application, u"Fake"_s);
        QVERIFY(!m_transport->isBusy());
    }

    void oneThatGoesIsNotConnectedAnyMore()
    {
        m_fake.start();
        open();
        QTRY_COMPARE_WITH_TIMEOUT(m_connection->state().kind, Kind::Connected, patience);
        m_fake.stop();
        QTRY_VERIFY_WITH_TIMEOUT(m_connection->state().kind != Kind::Connected, patience);
        QVERIFY(m_connection->state().accounts.isEmpty());
    }

    void anotherProtocolIsAnotherVersion()
    {
        m_fake.start();
        m_fake.configure({{u"protocolVersion"_s, 2}});
        open();
        QTRY_COMPARE_WITH_TIMEOUT(m_connection->state().kind, Kind::OtherVersion, patience);
    }

    void whatTheAddOnAnswersForTheAccountsIsTaken_data()
    {
        QTest::addColumn<QString>("error");
        QTest::addColumn<Kind>("kind");
        QTest::newRow("add-on gone") << u"NotConnected no add-on"_s << Kind::Silent;
        QTest::newRow("add-on of another version") << u"Mismatch old"_s << Kind::OtherVersion;
        QTest::newRow("anything else") << u"Failed a disk is full"_s << Kind::Connected;
    }

    void whatTheAddOnAnswersForTheAccountsIsTaken()
    {
        QFETCH(QString, error);
        QFETCH(Kind, kind);
        m_fake.start();
        m_fake.configure();
        m_fake.at(1, u"fail"_s, error);
        open();
        QTRY_VERIFY_WITH_TIMEOUT(m_fake.log().contains(u"Application.Accounts"_s), patience);
        QTRY_COMPARE_WITH_TIMEOUT(m_connection->state().kind, kind, patience);
    }

    void anAnswerOfAnotherTypeHasNoAccounts()
    {
        m_fake.start();
        m_fake.configure({{u"accounts"_s, QJsonArray{QJsonArray{u"1"_s, u"Home"_s, u"Me <me@example.org>"_s}}}});
        m_fake.at(1, u"garble"_s, u"texts"_s);
        open();
        QTRY_VERIFY_WITH_TIMEOUT(m_fake.log().contains(u"Application.Accounts"_s), patience);
        // A later question's answer comes behind that one's.
        QVERIFY(m_transport->services().bus().call(QDBusMessage::createMethodCall(
            m_transport->services().preferred(), u"/org/kest/Mail1"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s)).type()
            == QDBusMessage::ReplyMessage);
        QCoreApplication::processEvents();
        QCOMPARE(m_connection->state().kind, Kind::Connected);
        QCOMPARE(m_connection->state().accounts, QStringList());
    }

    void withoutAMailApplicationThatIsSaid() { QCOMPARE(lookedAt(), Kind::NoApplication); }

    void anotherMailApplicationIsNamed()
    {
        m_installed->install(u"org.example.Post.desktop"_s, u"post"_s, u"Post"_s);
        m_installed->makeDefault(u"org.example.Post.desktop"_s);
        QCOMPARE(lookedAt(), Kind::Unsupported);
        QCOMPARE(m_connection->state().application, u"Post"_s);
    }

    void lookingStartsNothing()
    {
        const QString trace = at(u"started"_s);
        const QString program = m_installed->script(u"thunderbird"_s, "touch " + trace.toUtf8() + "\n");
        installThunderbird(program);
        makeProfile();
        QCOMPARE(lookedAt(), Kind::AddOnMissing);
        QTRY_VERIFY_WITH_TIMEOUT(m_transport->services().isReady(), patience);
        QCOMPARE(m_connection->state().kind, Kind::AddOnMissing);
        QVERIFY(!QFile::exists(trace));
    }

    void theAddOnIsFoundWhereThunderbirdLooks_data()
    {
        QTest::addColumn<QString>("place");
        QTest::addColumn<Kind>("kind");
        QTest::newRow("for everybody") << u"system/"_s + addOn << Kind::NotRunning;
        QTest::newRow("in the profile") << u"profiles/a.default/extensions/"_s + addOn << Kind::NotRunning;
        QTest::newRow("in another profile") << u"profiles/b.old/extensions/"_s + addOn << Kind::AddOnMissing;
    }

    void theAddOnIsFoundWhereThunderbirdLooks()
    {
        QFETCH(QString, place);
        QFETCH(Kind, kind);
        installThunderbird();
        makeProfile();
        write(place);
        QCOMPARE(lookedAt(), kind);
    }

    void theInstallationsOwnProfileGoesBeforeTheMarkedOne()
    {
        makeProfile();
        QVERIFY(QDir().mkpath(at(u"profiles/b.esr"_s)));
        write(u"profiles/installs.ini"_s, "[ABC]\nDefault=b.esr\nLocked=1\n");
        QCOMPARE(addOnHere().profile(), at(u"profiles/b.esr"_s));
    }

    void aLockOfAProcessThatIsNoThunderbirdCountsForNothing_data()
    {
        QTest::addColumn<QByteArray>("lock");
        QTest::newRow("this test's") << QByteArray("127.0.1.1:+" + QByteArray::number(::getpid()));
        QTest::newRow("nobody's") << QByteArray("127.0.1.1:+2147483646");
        QTest::newRow("nonsense") << QByteArray("x");
    }

    void aLockOfAProcessThatIsNoThunderbirdCountsForNothing()
    {
        QFETCH(QByteArray, lock);
        makeProfile();
        QCOMPARE(::symlink(lock.constData(), QFile::encodeName(at(u"profiles/a.default/lock"_s)).constData()), 0);
        QVERIFY(!addOnHere().isRunning());
    }

    void aRunningThunderbirdWithTheAddOnIsToBeRestarted()
    {
        installThunderbird();
        makeProfile();
        write(u"system/"_s + addOn);
        const QString program = at(u"thunderbird"_s);
        QVERIFY(QFile::copy(u"/bin/sleep"_s, program));
        QProcess thunderbird;
        thunderbird.start(program, {u"600"_s});
        QVERIFY(thunderbird.waitForStarted());
        const QByteArray lock = "127.0.1.1:+" + QByteArray::number(thunderbird.processId());
        QCOMPARE(::symlink(lock.constData(), QFile::encodeName(at(u"profiles/a.default/lock"_s)).constData()), 0);
        QTRY_COMPARE(lookedAt(), Kind::NotConnected);
        thunderbird.kill();
        QVERIFY(thunderbird.waitForFinished());
        QCOMPARE(lookedAt(), Kind::NotRunning);
    }

    void installingRunsTheCommandAndLooksAgain()
    {
        installThunderbird();
        makeProfile();
        const QString target = at(u"profiles/a.default/extensions"_s);
        m_command = {m_installed->script(u"put-in"_s, "/bin/mkdir -p \"$1\" && /usr/bin/touch \"$1/kest@kest.invalid.xpi\"\n"), target};
        QCOMPARE(lookedAt(), Kind::AddOnMissing);
        QVERIFY(m_connection->state().canInstall);
        QSignalSpy ended(m_connection.get(), &MailConnection::installEnded);
        m_connection->installAddOn();
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, patience);
        QCOMPARE(ended.first().first().toString(), QString());
        QCOMPARE(m_connection->state().kind, Kind::NotRunning);
    }

    void aFailedInstallationIsSaid_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("words");
        QTest::newRow("Thunderbird runs") << QByteArray("echo 'thunderbird-addon: it runs' >&2; exit 4\n")
                                          << u"Quit Thunderbird first, then install the add-on."_s;
        QTest::newRow("its own words") << QByteArray("echo 'thunderbird-addon: there is no folder: /x' >&2; exit 1\n")
                                       << u"there is no folder: /x"_s;
        QTest::newRow("words without the program's name")
            << QByteArray("echo 'not found' >&2; exit 127\n") << u"The add-on could not be installed."_s;
        QTest::newRow("no words") << QByteArray("exit 1\n") << u"The add-on could not be installed."_s;
    }

    void aFailedInstallationIsSaid()
    {
        QFETCH(QByteArray, script);
        QFETCH(QString, words);
        installThunderbird();
        makeProfile();
        m_command = {m_installed->script(u"fail"_s, script)};
        QCOMPARE(lookedAt(), Kind::AddOnMissing);
        QSignalSpy ended(m_connection.get(), &MailConnection::installEnded);
        m_connection->installAddOn();
        QTRY_COMPARE_WITH_TIMEOUT(ended.size(), 1, patience);
        QCOMPARE(ended.first().first().toString(), words);
        QCOMPARE(m_connection->state().kind, Kind::AddOnMissing);
    }

    void theBuildsOwnCommandIsFound()
    {
        const QStringList command = ThunderbirdAddOn::Places::ofThisComputer().installCommand;
        QCOMPARE(command.size(), 4);
        QVERIFY(QFileInfo(command.first()).isExecutable());
        QVERIFY(QFile::exists(command.last() + u"/bin/kest-mail-host"_s) || !QFile::exists(command.last() + u"/bin/kest"_s));
    }
};

QTEST_GUILESS_MAIN(TestMailConnection)
#include "tst_mailconnection.moc"
