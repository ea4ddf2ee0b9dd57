#include "mail/MailController.h"
#include "unit/mail/MailBackEndTest.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <stdexcept>

using namespace kest;
using namespace Qt::StringLiterals;

namespace {

const QString original = QStringLiteral("/org/kest/Mail1/message/1");

QJsonArray person(const QString &name, const QString &address)
{
    return QJsonArray{name, address};
}

} // namespace

/// Replies of MailController against the fake mail application, over a real
/// bus.
class TestMailReply : public test::MailBackEndTest<MailController>
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startFake(); }
    void init() { makeBackEnd(); }

    void replyIsBuiltFromTheMailApplicationsOwnInThisOrder()
    {
        reply({});
        QCOMPARE(m_fake.log(),
                 (QStringList{u"Message.Reply"_s, u"OutgoingMessage.ToRecipients"_s, u"OutgoingMessage.Subject"_s,
                              u"OutgoingMessage.Content"_s, u"OutgoingMessage.Sender"_s, u"OutgoingMessage.Delete"_s,
                              u"Application.MakeOutgoingMessage"_s, u"OutgoingMessage.AddRecipient"_s,
                              u"OutgoingMessage.Sender"_s, u"OutgoingMessage.InsertAttachment"_s,
                              u"OutgoingMessage.Visible"_s, u"Application.Activate"_s}));
        const QJsonObject made = m_fake.onlyOutgoing();
        QCOMPARE(made[u"subject"].toString(), u"Re: Lunch"_s);
        QCOMPARE(made[u"content"].toString(), u"Yes\n\n\n> Lunch?\n"_s);
        QCOMPARE(made[u"sender"].toString(), u"Me <me@example.org>"_s);
        QCOMPARE(made[u"visible"].toBool(), true);
        QCOMPARE(made[u"attachments"][0][u"index"].toString(), u"5"_s);
        QCOMPARE(m_fake.state()[u"sent"].toArray().size() + m_fake.state()[u"deleted"].toArray().size(), 0);
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void withoutReplyAllOnlyTheToRecipientsAreTakenOver()
    {
        configure({{u"to"_s, QJsonArray{person(u"A"_s, u"a@x"_s), person(u""_s, u"b@x"_s)}},
                   {u"cc"_s, QJsonArray{person(u"C"_s, u"c@x"_s)}},
                   {u"bcc"_s, QJsonArray{person(u"D"_s, u"d@x"_s)}}});
        reply({});
        const QJsonObject made = m_fake.onlyOutgoing();
        QCOMPARE(made[u"to"].toArray(), (QJsonArray{person(u"A"_s, u"a@x"_s), person(u""_s, u"b@x"_s)}));
        QCOMPARE(made[u"cc"].toArray(), QJsonArray());
        QCOMPARE(made[u"bcc"].toArray(), QJsonArray());
    }

    void ccRecipientsAreNamedByTheirAddressAndBccByTheCcs()
    {
        configure({{u"cc"_s, QJsonArray{person(u"C"_s, u"c@x"_s)}}, {u"bcc"_s, QJsonArray{person(u"D"_s, u"d@x"_s)}}});
        reply({.withReplyAll = true});
        const QJsonObject made = m_fake.onlyOutgoing();
        QCOMPARE(made[u"cc"].toArray(), (QJsonArray{person(u"c@x"_s, u"c@x"_s)}));
        QCOMPARE(made[u"bcc"].toArray(), (QJsonArray{person(u"c@x"_s, u"d@x"_s)}));
    }

    void moreBccThanCcRecipientsIsARangeErrorWithoutAlert()
    {
        configure({{u"cc"_s, QJsonArray{person(u"C"_s, u"c@x"_s)}},
                   {u"bcc"_s, QJsonArray{person(u"D"_s, u"d@x"_s), person(u"E"_s, u"e@x"_s)}}});
        QVERIFY_THROWS_EXCEPTION(std::out_of_range,
                                 reply({.withReplyAll = true, .sendingReply = true, .deletingOriginal = true}));
        const QJsonObject made = m_fake.onlyOutgoing();
        QCOMPARE(made[u"to"].toArray().size(), 1);
        QCOMPARE(made[u"cc"].toArray().size(), 1);
        QCOMPARE(made[u"visible"].toBool(), false);
        QCOMPARE(m_fake.state()[u"sent"].toArray().size() + m_fake.state()[u"deleted"].toArray().size(), 0);
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void noReplyAtAllEndsWithoutAlertMessageOrDeletion()
    {
        m_fake.at(1, u"fail"_s, u"Failed No reply today."_s);
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, reply({.sendingReply = true, .deletingOriginal = true}));
        QCOMPARE(m_fake.log(), QStringList{u"Message.Reply"_s});
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void emptyQuoteIsAReplyAllTheSame()
    {
        configure({{u"quote"_s, QString()}});
        reply({});
        QCOMPARE(m_fake.onlyOutgoing()[u"content"].toString(), u"Yes\n\n"_s);
    }

    void missingSenderLeavesTheDefault()
    {
        m_fake.at(5, u"fail"_s, u"Failed No sender."_s);
        reply({});
        QCOMPARE(m_fake.log().count(u"OutgoingMessage.Sender"_s), 1);
        QVERIFY(m_fake.onlyOutgoing()[u"visible"].toBool());
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void sentReplyIsNeverShownAndTheMailApplicationStaysBehind()
    {
        reply({.sendingReply = true});
        QCOMPARE(m_fake.state()[u"sent"].toArray().size(), 1);
        QCOMPARE(m_fake.onlyOutgoing()[u"visible"].toBool(), false);
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 0);
        QCOMPARE(m_fake.state()[u"deleted"].toArray().size(), 0);
    }

    void originalIsDeletedAfterTheReplyIsSent()
    {
        reply({.sendingReply = true, .deletingOriginal = true});
        QCOMPARE(m_fake.log().mid(m_fake.log().size() - 2), (QStringList{u"OutgoingMessage.Send"_s, u"Message.Delete"_s}));
        QCOMPARE(m_fake.state()[u"deleted"].toArray(), QJsonArray{original});
    }

    void originalIsDeletedAfterTheReplyIsShown()
    {
        reply({.deletingOriginal = true});
        QCOMPARE(m_fake.log().mid(m_fake.log().size() - 3),
                 (QStringList{u"OutgoingMessage.Visible"_s, u"Application.Activate"_s, u"Message.Delete"_s}));
    }

    void originalIsKeptWhenTheReplyCannotBeShown()
    {
        m_fake.at(11, u"fail"_s, u"Failed No window today."_s);
        reply({.deletingOriginal = true});
        QCOMPARE(m_fake.log().last(), u"Application.Activate"_s);
        QCOMPARE(m_fake.state()[u"deleted"].toArray().size(), 0);
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"No window today."_s);
    }

    void emptyListMakesAReplyWithoutAttachment()
    {
        m_mail->mailReplyToMessage(message(), u"Yes\n\n"_s, QList<FileURL>(), {}, 5);
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"].toArray().size(), 0);
        QCOMPARE(m_fake.onlyOutgoing()[u"content"].toString(), u"Yes\n\n\n> Lunch?\n"_s);
        m_fake.configure();
        m_mail->mailReplyToMessage(message(), u"Yes"_s, std::nullopt, {}, 5);
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"].toArray().size(), 0);
    }

    void laterAttachmentsLandInFrontOfEarlierOnes()
    {
        m_mail->mailReplyToMessage(message(), u"Yes\n\n"_s, QList<FileURL>{m_first, m_second}, {}, 5);
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"][0][u"name"].toString(), u"second.m4a"_s);
    }

    // By number of the failing call, with one recipient and one attachment.
    void failureAtACheckPointIsToldAndEndsTheReply_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<bool>("sending");
        QTest::addColumn<QString>("lastCall");
        QTest::addColumn<int>("deleted");
        QTest::newRow("discard the own reply") << 6 << false << u"OutgoingMessage.Delete"_s << 0;
        QTest::newRow("make") << 7 << false << u"Application.MakeOutgoingMessage"_s << 0;
        QTest::newRow("last recipient") << 8 << false << u"OutgoingMessage.AddRecipient"_s << 0;
        QTest::newRow("attachment") << 10 << false << u"OutgoingMessage.InsertAttachment"_s << 0;
        QTest::newRow("send") << 11 << true << u"OutgoingMessage.Send"_s << 0;
        QTest::newRow("delete the original") << 13 << false << u"Message.Delete"_s << 0;
    }
    void failureAtACheckPointIsToldAndEndsTheReply()
    {
        QFETCH(int, call);
        QFETCH(bool, sending);
        QFETCH(QString, lastCall);
        QFETCH(int, deleted);
        m_fake.at(static_cast<uint>(call), u"fail"_s, u"Failed It is raining."_s);
        reply({.sendingReply = sending, .deletingOriginal = true});
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"It is raining."_s);
        QCOMPARE(m_fake.log().last(), lastCall);
        QCOMPARE(m_fake.state()[u"deleted"].toArray().size(), deleted);
        QCOMPARE(m_fake.state()[u"sent"].toArray().size(), 0);
    }

    void failureToShowIsToldAtTheEndWhenNothingFollowsIt()
    {
        m_fake.at(12, u"fail"_s, u"Failed Cannot come forward."_s);
        reply({});
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"Cannot come forward."_s);
    }

    void failureWhileReadingTheOwnReplyGoesUntold()
    {
        m_fake.at(3, u"fail"_s, u"Failed No subject."_s);
        reply({});
        QVERIFY(m_alerts.shown.isEmpty());
        QCOMPARE(m_fake.onlyOutgoing()[u"subject"].toString(), QString());
    }

private:
    void configure(const QJsonObject &message) { m_fake.configure({{u"messages"_s, QJsonArray{message}}}); }

    Message message() { return {*m_mail->mailApp(), original}; }

    void reply(const ReplyFlags &flags)
    {
        m_mail->mailReplyToMessage(message(), u"Yes\n\n"_s, m_first, flags, 5);
    }
};

QTEST_GUILESS_MAIN(TestMailReply)
#include "tst_mailreply.moc"
