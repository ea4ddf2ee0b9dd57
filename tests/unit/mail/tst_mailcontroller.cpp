#include "fakes/RecordingAlertPresenter.h"
#include "mail/MailController.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "support/FakeMail.h"

#include <QtTest>

using kest::FileURL;
using kest::MailController;
using namespace Qt::StringLiterals;

/// MailController against the fake mail application, over a real bus.
class TestMailController : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_fake.start();
        QVERIFY(m_folder.isValid());
        m_first = written(u"first.m4a"_s, "first bytes");
        m_second = written(u"second.m4a"_s, "second bytes");
    }

    void init()
    {
        m_fake.configure();
        m_alerts = {};
        m_transport = std::make_unique<kest::DBusMailTransport>();
        m_controller = std::make_unique<MailController>(*m_transport, m_alerts);
    }

    void newMessageIsMadeFilledShownAndBroughtForwardInThisOrder()
    {
        m_controller->mailCreateMessageWithSubject(u"Subject"_s, u"Hi\n\n"_s, m_first, 4);
        QCOMPARE(m_fake.log(), (QStringList{u"Application.MakeOutgoingMessage"_s, u"OutgoingMessage.InsertAttachment"_s,
                                            u"OutgoingMessage.Visible"_s, u"Application.Activate"_s}));
        const QJsonObject message = m_fake.onlyOutgoing();
        QCOMPARE(message[u"subject"].toString(), u"Subject"_s);
        QCOMPARE(message[u"content"].toString(), u"Hi\n\n"_s);
        QCOMPARE(message[u"visible"].toBool(), true);
        QCOMPARE(message[u"attachments"][0][u"name"].toString(), u"first.m4a"_s);
        QCOMPARE(message[u"attachments"][0][u"index"].toInt(), 4);
        QCOMPARE(QByteArray::fromBase64(message[u"attachments"][0][u"base64"].toString().toLatin1()),
                 QByteArray("first bytes"));
        QVERIFY(m_alerts.shown.isEmpty());
    }

private:
    FileURL written(const QString &name, const QByteArray &bytes)
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the test's file");
        return FileURL::fromPath(file.fileName());
    }

    QTemporaryDir m_folder;
    FileURL m_first;
    FileURL m_second;
    kest::test::FakeMail m_fake;
    kest::test::RecordingAlertPresenter m_alerts;
    std::unique_ptr<kest::DBusMailTransport> m_transport;
    std::unique_ptr<MailController> m_controller;
};

QTEST_GUILESS_MAIN(TestMailController)
#include "tst_mailcontroller.moc"
