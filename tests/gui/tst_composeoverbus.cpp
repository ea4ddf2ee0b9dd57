#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "platform/linux/mail/DBusMailConnection.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "ui/MailStateView.h"
#include "support/FakeMail.h"
#include "ui/controls/ControlButton.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QTest>
#include <QTimer>

using namespace kest;
using namespace kest::test;
using namespace std::chrono_literals;

namespace {

const QString newMessage = QStringLiteral("New Message");

} // namespace

/// The New Message command from the real window over a real bus to another
/// process that offers what a mail application offers.
class TestComposeOverBus : public QObject
{
    Q_OBJECT

private:
    FakeMail m_fake;
    std::unique_ptr<WindowHouse> m_house;
    std::unique_ptr<DBusMailTransport> m_mail;

    MainWindowController &controller() { return *m_house->controller; }

    void record()
    {
        m_house->click(QStringLiteral("Record"));
        m_house->click(QStringLiteral("Stop"));
    }

private Q_SLOTS:
    void initTestCase() { m_fake.start(); }

    void init()
    {
        m_fake.configure();
        m_house = std::make_unique<WindowHouse>();
        m_mail = std::make_unique<DBusMailTransport>(
            DBusMailTransport::Limits{.answer = 60s, .start = 60s, .startAgain = 1s});
        m_house->otherMail = m_mail.get();
        m_house->openAndShow();
    }

    void cleanup()
    {
        m_house.reset();
        m_mail.reset();
    }

    void theWindowSaysWhomItIsConnectedToAndAsWhom()
    {
        DBusMailConnection connection(m_mail->services());
        m_house->otherConnection = &connection;
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
        const auto *view = controller().window()->findChild<MailStateView *>();
        QTRY_COMPARE(view->text(), QStringLiteral("Connected to Fake as Home."));
        m_fake.stop();
        QTRY_VERIFY2(!view->text().startsWith(QStringLiteral("Connected")), qPrintable(view->text()));
        m_fake.start();
        QTRY_COMPARE(view->text(), QStringLiteral("Connected to Fake as Home."));
        m_house->controller.reset();
    }

    void bothBackEndsHandTheRecordingOver_data()
    {
        QTest::addColumn<bool>("script");
        QTest::newRow("script") << true;
        QTest::newRow("own") << false;
    }

    void bothBackEndsHandTheRecordingOver()
    {
        QFETCH(bool, script);
        m_house->settings->setBool(script, SettingsKeys::useASClass);
        m_house->settings->setObject(QStringLiteral("Spoken"), SettingsKeys::tNewMessageSubject);
        record();
        m_house->click(newMessage);
        const QJsonObject message = m_fake.onlyOutgoing();
        QCOMPARE(message.value(QStringLiteral("subject")).toString(), QStringLiteral("Spoken"));
        QVERIFY(message.value(QStringLiteral("visible")).toBool());
        const QJsonObject attachment = message.value(QStringLiteral("attachments")).toArray().at(0).toObject();
        QCOMPARE(attachment.value(QStringLiteral("name")).toString(), QStringLiteral("2024-03-05_14-07-09.m4a"));
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(!controller().recordingExists());
    }

    void theWindowPaintsAndTakesNoInputWhileItWaits()
    {
        m_fake.freeze(); // until this test has looked
        record();
        bool painted = false;
        QString notice;
        bool enabled = true;
        QTimer::singleShot(150, this, [&] {
            notice = m_house->notice();
            enabled = m_house->isEnabled(QStringLiteral("Record"));
            painted = !controller().window()->grab().isNull();
            controller().mailComposeNewMessage(); // nothing may come of it
            m_fake.thaw();
        });
        m_house->click(newMessage);
        QVERIFY(painted);
        QVERIFY(!enabled);
        QCOMPARE(notice, QStringLiteral("Waiting for the mail application…"));
        QCOMPARE(m_fake.log().count(QStringLiteral("Application.Accounts")), 1);
        QVERIFY(m_house->isEnabled(QStringLiteral("Record")));
    }

    void aFailureIsToldAndALaterCommandWorks()
    {
        m_house->settings->setBool(false, SettingsKeys::useASClass);
        m_fake.at(2, QStringLiteral("fail"), QStringLiteral("Failed The disk of the mail application is full."));
        record();
        m_house->click(newMessage);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QVERIFY(m_house->alerts.shown.first().messageText.contains(QStringLiteral("disk")));
        m_house->clock.advance(60);
        record();
        m_house->click(newMessage);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QVERIFY(!m_fake.onlyOutgoing().isEmpty());
    }
};

QTEST_MAIN(TestComposeOverBus)
#include "tst_composeoverbus.moc"
