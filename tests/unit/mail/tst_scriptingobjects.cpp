#include "mail/MailApplication.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "support/FakeMail.h"
#include "unit/mail/MailTestFiles.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <stdexcept>

using namespace kest;
using namespace Qt::StringLiterals;

/// The scripting objects against the fake mail application, over a real bus.
class TestScriptingObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_fake.start(); }

    void init()
    {
        m_fake.configure();
        m_transport = std::make_unique<DBusMailTransport>();
        m_application = std::make_unique<MailApplication>(*m_transport);
    }

    void makingAnObjectSendsNothing()
    {
        for (const QString &name :
             {u"outgoing message"_s, u"attachment"_s, u"to recipient"_s, u"cc recipient"_s, u"bcc recipient"_s})
            QVERIFY2(m_application->classForScriptingClass(name).initWithProperties({}).isValid(), qPrintable(name));
        QCOMPARE(m_fake.log(), QStringList());
    }

    void unknownScriptingClassMakesNothing()
    {
        QVERIFY(!m_application->classForScriptingClass(u"signature"_s).initWithProperties({}).isValid());
    }

    void callsToAMessageThatWasNotAddedSendNothing()
    {
        const auto message = OutgoingMessage::initWithProperties(*m_application, {{u"subject"_s, u"s"_s}});
        QVERIFY(!message.exists());
        message.setVisible(true);
        message.send();
        QVERIFY(message.subject().isNull());
        QCOMPARE(message.toRecipients().count(), 0);
        QVERIFY(!m_application->lastError());
        QCOMPARE(m_fake.log(), QStringList());
    }

    void addingAMessageBringsItIntoBeingOnce()
    {
        const auto message = OutgoingMessage::initWithProperties(*m_application, {{u"subject"_s, u"s"_s}});
        m_application->outgoingMessages().addObject(message);
        QVERIFY(message.exists());
        m_application->outgoingMessages().addObject(message);
        QCOMPARE(m_fake.log(), QStringList{u"Application.MakeOutgoingMessage"_s});
        QCOMPARE(message.subject(), u"s"_s);
    }

    void copiesNameTheSameMessage()
    {
        const auto message = OutgoingMessage::initWithProperties(*m_application, {});
        const OutgoingMessage copy = message;
        m_application->outgoingMessages().addObject(message);
        QVERIFY(copy.exists());
    }

    void recipientsAreReadInOneCallPerCollection()
    {
        m_fake.configure({{u"messages"_s, QJsonArray{QJsonObject{{u"to"_s, QJsonArray{QJsonArray{u"A"_s, u"a@x.org"_s},
                                                                                       QJsonArray{u""_s, u"b@x.org"_s}}}}}}});
        const auto reply = m_application->selection().first().replyOpeningWindow(false, true);
        const auto recipients = reply.toRecipients();
        QCOMPARE(recipients.count(), 2);
        QCOMPARE(recipients.objectAtIndexedSubscript(0).name(), u"A"_s);
        QCOMPARE(recipients.objectAtIndexedSubscript(1).name(), QString());
        QCOMPARE(recipients.objectAtIndexedSubscript(1).address(), u"b@x.org"_s);
        QCOMPARE(m_fake.log().count(u"OutgoingMessage.ToRecipients"_s), 1);
    }

    void recipientPastTheEndIsARangeError()
    {
        const auto reply = m_application->selection().first().replyOpeningWindow(false, true);
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, reply.toRecipients().objectAtIndexedSubscript(1));
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, reply.ccRecipients().objectAtIndexedSubscript(0));
    }

    void recipientsAreAddedByKind()
    {
        const auto message = OutgoingMessage::initWithProperties(*m_application, {});
        m_application->outgoingMessages().addObject(message);
        message.toRecipients().addObject({u"T"_s, u"t@x.org"_s});
        message.ccRecipients().addObject({u"C"_s, u"c@x.org"_s});
        message.bccRecipients().addObject({u"B"_s, u"b@x.org"_s});
        const QJsonObject made = m_fake.onlyOutgoing();
        QCOMPARE(made[u"to"].toArray(), (QJsonArray{QJsonArray{u"T"_s, u"t@x.org"_s}}));
        QCOMPARE(made[u"cc"].toArray(), (QJsonArray{QJsonArray{u"C"_s, u"c@x.org"_s}}));
        QCOMPARE(made[u"bcc"].toArray(), (QJsonArray{QJsonArray{u"B"_s, u"b@x.org"_s}}));
    }

    void replyHasTheMailApplicationsSubjectContentAndSender()
    {
        const auto reply = m_application->selection().first().replyOpeningWindow(true, false);
        QVERIFY(reply.exists());
        QCOMPARE(reply.subject(), u"Re: Lunch"_s);
        QCOMPARE(reply.content().get(), u"\n> Lunch?\n"_s);
        QCOMPARE(reply.sender(), u"Me <me@example.org>"_s);
        QVERIFY(reply.isVisible());
    }

    void failedReplyIsNoMessage()
    {
        const Message message = m_application->selection().first();
        m_fake.at(1, u"fail"_s, u"NoSuchObject gone"_s);
        const OutgoingMessage reply = message.replyOpeningWindow(false, true);
        QVERIFY(!reply.exists());
        QVERIFY(m_application->lastError());
        QVERIFY(reply.content().get().isNull());
        QVERIFY(m_application->lastError());
    }

    void sendingAndDeletingReachTheMailApplication()
    {
        const Message original = m_application->selection().first();
        const auto message = OutgoingMessage::initWithProperties(*m_application, {});
        m_application->outgoingMessages().addObject(message);
        message.setSender(u"Me <me@example.org>"_s);
        message.send();
        original.deleteMessage();
        QVERIFY(!m_application->lastError());
        QCOMPARE(m_fake.state()[u"sent"].toArray().size(), 1);
        QCOMPARE(m_fake.state()[u"deleted"].toArray().size(), 1);
        message.send();
        QVERIFY(m_application->lastError());
    }

    void accountsHaveNameAndSender()
    {
        m_fake.configure({{u"accounts"_s, QJsonArray{QJsonArray{u"id7"_s, u"Work"_s, u"W <w@x.org>"_s}}}});
        const QList<Account> accounts = m_application->accounts();
        QCOMPARE(accounts.count(), 1);
        QCOMPARE(accounts[0].identifier, u"id7"_s);
        QCOMPARE(accounts[0].name, u"Work"_s);
        QCOMPARE(accounts[0].sender, u"W <w@x.org>"_s);
    }

private:
    test::FakeMail m_fake;
    std::unique_ptr<DBusMailTransport> m_transport;
    std::unique_ptr<MailApplication> m_application;
};

QTEST_GUILESS_MAIN(TestScriptingObjects)
#include "tst_scriptingobjects.moc"
