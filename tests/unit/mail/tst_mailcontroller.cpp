#include "mail/MailController.h"
#include "unit/mail/MailBackEndTest.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

using kest::FileURL;
using kest::MailController;
using kest::test::attachedBytes;
using namespace Qt::StringLiterals;

/// MailController against the fake mail application, over a real bus.
class TestMailController : public kest::test::MailBackEndTest<MailController>
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startFake(); }
    void init() { makeBackEnd(); }

    void makingTheControllerAsksNothing()
    {
        QVERIFY(m_mail->mailApp());
        QVERIFY(!m_mail->mailApp()->lastError());
        QTest::qWait(0);
        QCOMPARE(m_fake.log(), QStringList());
    }

    void failedEventYieldsAnEmptyResultAndTheLastError()
    {
        m_fake.at(1, u"fail"_s, u"Failed The account list is broken."_s);
        QCOMPARE(m_mail->mailApp()->accounts().count(), 0);
        QCOMPARE(m_mail->mailApp()->lastError()->description, u"The account list is broken."_s);
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void lastErrorIsThatOfTheMostRecentEvent()
    {
        m_fake.at(1, u"fail"_s, u"Failed First."_s);
        m_fake.at(2, u"fail"_s, u"Failed Second."_s);
        m_mail->mailApp()->activate();
        m_mail->mailApp()->activate();
        QCOMPARE(m_mail->mailApp()->lastError()->description, u"Second."_s);
        m_mail->mailApp()->activate();
        QVERIFY(!m_mail->mailApp()->lastError());
    }

    void delegateAnswersAFailedEventWithNothing()
    {
        QVERIFY(!m_mail->eventDidFail({}, {}).isValid());
    }

    void newMessageIsMadeFilledShownAndBroughtForwardInThisOrder()
    {
        m_mail->mailCreateMessageWithSubject(u"Subject"_s, u"Hi\n\n"_s, m_first, 4);
        QCOMPARE(m_fake.log(), (QStringList{u"Application.MakeOutgoingMessage"_s, u"OutgoingMessage.InsertAttachment"_s,
                                            u"OutgoingMessage.Visible"_s, u"Application.Activate"_s}));
        const QJsonObject message = m_fake.onlyOutgoing();
        QCOMPARE(message[u"subject"].toString(), u"Subject"_s);
        QCOMPARE(message[u"content"].toString(), u"Hi\n\n"_s);
        QCOMPARE(message[u"visible"].toBool(), true);
        QCOMPARE(message[u"attachments"][0][u"name"].toString(), u"first.m4a"_s);
        QCOMPARE(message[u"attachments"][0][u"index"].toString(), u"4"_s);
        QCOMPARE(attachedBytes(message[u"attachments"][0]), QByteArray("first bytes"));
        QCOMPARE(m_fake.state()[u"sent"].toArray().size(), 0);
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void noAttachmentMakesAVisibleMessageWithSubjectAndBodyOnly()
    {
        m_mail->mailCreateMessageWithSubject(u"Subject"_s, u"Body"_s, std::nullopt, 6);
        const QJsonObject message = m_fake.onlyOutgoing();
        QCOMPARE(message[u"visible"].toBool(), true);
        QCOMPARE(message[u"content"].toString(), u"Body"_s);
        QCOMPARE(message[u"attachments"].toArray().size(), 0);
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 1);
    }

    void laterAttachmentsOfOneListLandInFrontOfEarlierOnes()
    {
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"Hello"_s, QList<FileURL>{m_first, m_second}, 3);
        const QJsonArray attachments = m_fake.onlyOutgoing()[u"attachments"].toArray();
        QCOMPARE(attachments.size(), 2);
        QCOMPARE(attachments[0][u"name"].toString(), u"second.m4a"_s);
        QCOMPARE(attachments[1][u"name"].toString(), u"first.m4a"_s);
        QCOMPARE(attachments[0][u"index"], attachments[1][u"index"]);
    }

    void insertionIndexIsPassedOnUnchanged()
    {
        const quint64 index = std::numeric_limits<quint64>::max();
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"Hello"_s, m_first, index);
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"][0][u"index"].toString(), QString::number(index));
    }

    void emptySubjectAndBodyArePassedOnEmpty()
    {
        m_mail->mailCreateMessageWithSubject({}, {}, m_first, 0);
        const QJsonObject message = m_fake.onlyOutgoing();
        QVERIFY(message[u"subject"].isString() && message[u"subject"].toString().isEmpty());
        QVERIFY(message[u"content"].isString() && message[u"content"].toString().isEmpty());
    }

    void failureOfAnEarlierEventIsToldBeforeAnythingIsMade()
    {
        m_fake.at(1, u"fail"_s, u"Failed No selection today."_s);
        m_mail->mailGetSelectedMessages();
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"b"_s, m_first, 0);
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"No selection today."_s);
        QCOMPARE(m_fake.log(), QStringList{u"Application.Selection"_s});
    }

    void failureToMakeTheMessageIsToldAndNothingElseIsDone()
    {
        m_fake.at(1, u"fail"_s, u"Failed No room for a message."_s);
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"b"_s, m_first, 0);
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"No room for a message."_s);
        QCOMPARE(m_fake.log(), QStringList{u"Application.MakeOutgoingMessage"_s});
    }

    void failedInsertIsToldAfterTheMessageIsShown()
    {
        m_fake.at(2, u"fail"_s, u"Failed The file is refused."_s);
        bool wasShown = false;
        m_alerts.whenShown = [&] {
            const QJsonObject state = m_fake.state();
            wasShown = m_fake.onlyOutgoing()[u"visible"].toBool() && state[u"activations"].toInt() == 1;
        };
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"b"_s, m_first, 0);
        m_alerts.whenShown = {};
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"The file is refused."_s);
        QVERIFY(wasShown);
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"].toArray().size(), 0);
    }

    void failedInsertDoesNotKeepTheNextAttachmentOut()
    {
        m_fake.at(2, u"fail"_s, u"Failed The file is refused."_s);
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"b"_s, QList<FileURL>{m_first, m_second}, 0);
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"][0][u"name"].toString(), u"second.m4a"_s);
        QCOMPARE(m_alerts.shown.size(), 1);
    }

    void missingFileIsToldWithItsNameAfterTheMessageIsShown()
    {
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"b"_s, m_files.at("gone.m4a"), 0);
        QCOMPARE(m_alerts.shown.size(), 1);
        QVERIFY2(m_alerts.shown[0].messageText.contains(u"gone.m4a"), qPrintable(m_alerts.shown[0].messageText));
        QVERIFY(m_fake.onlyOutgoing()[u"visible"].toBool());
    }

    void failureToShowGoesUntoldWhenALaterEventSucceeds()
    {
        m_fake.at(3, u"fail"_s, u"Failed No window."_s);
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"b"_s, m_first, 0);
        QVERIFY(m_alerts.shown.isEmpty());
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 1);
    }

    void failureToComeForwardIsToldAndTheMessageStays()
    {
        m_fake.at(4, u"fail"_s, u"Failed Cannot come forward."_s);
        m_mail->mailCreateMessageWithSubject(u"s"_s, u"b"_s, m_first, 0);
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"Cannot come forward."_s);
        QVERIFY(m_fake.onlyOutgoing()[u"visible"].toBool());
    }

    void accountExistsWithoutAnAlert()
    {
        QVERIFY(m_mail->mailVerifyAccountExists());
        QVERIFY(m_alerts.shown.isEmpty());
        QCOMPARE(m_fake.log(), QStringList{u"Application.Accounts"_s});
    }

    void missingAccountIsTold()
    {
        m_fake.configure({{u"accounts"_s, QJsonArray()}});
        QVERIFY(!m_mail->mailVerifyAccountExists());
        expectUnableToProceed(u"No accounts were detected in Mail. You must have at least one account configured in order to "
                              "create messages or reply to messages. Please ensure that you have an account configured, and "
                              "try again."_s);
        QCOMPARE(m_fake.log(), QStringList{u"Application.Accounts"_s});
    }

    void accountCountThatFailsReadsAsNoAccount()
    {
        m_fake.at(1, u"fail"_s, u"Failed Something else."_s);
        QVERIFY(!m_mail->mailVerifyAccountExists());
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"Unable to Proceed"_s);
    }

    void selectedMessageExistsWithoutAnAlert()
    {
        QVERIFY(m_mail->mailVerifySelectedMessagesExist());
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void missingSelectionIsTold()
    {
        m_fake.configure({{u"messages"_s, QJsonArray()}});
        QVERIFY(!m_mail->mailVerifySelectedMessagesExist());
        expectUnableToProceed(
            u"No messages appear to be selected in Mail. Please select a message and try again."_s);
    }

    void selectionCountThatFailsReadsAsNoMessage()
    {
        m_fake.at(1, u"fail"_s, u"Failed Something else."_s);
        QVERIFY(!m_mail->mailVerifySelectedMessagesExist());
        QCOMPARE(m_alerts.shown.size(), 1);
    }

    void selectedMessagesKeepTheMailApplicationsOrder()
    {
        const QJsonObject first{{u"replyTo"_s, u"Zoe <z@example.org>"_s}};
        const QJsonObject last{{u"replyTo"_s, u"Abe <a@example.org>"_s}};
        m_fake.configure({{u"messages"_s, QJsonArray{first, last}}});
        const QList<kest::Message> selected = m_mail->mailGetSelectedMessages();
        QCOMPARE(selected.size(), 2);
        QCOMPARE(selected[0].replyTo(), u"Zoe <z@example.org>"_s);
        QCOMPARE(selected[1].replyTo(), u"Abe <a@example.org>"_s);
    }

    void selectedMessagesMayBeNoneWithoutAnAlert()
    {
        m_fake.configure({{u"messages"_s, QJsonArray()}});
        QVERIFY(m_mail->mailGetSelectedMessages().isEmpty());
        QVERIFY(m_alerts.shown.isEmpty());
    }

private:
    void expectUnableToProceed(const QString &informativeText)
    {
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"Unable to Proceed"_s);
        QCOMPARE(m_alerts.shown[0].informativeText, informativeText);
        QCOMPARE(m_alerts.shown[0].buttons, QStringList{u"OK"_s});
        QVERIFY(m_alerts.shown[0].style == kest::AlertContent::Style::Warning);
    }
};

QTEST_GUILESS_MAIN(TestMailController)
#include "tst_mailcontroller.moc"
