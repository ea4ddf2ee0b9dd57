#include "mail/ASMail.h"
#include "unit/mail/MailBackEndTest.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QRegularExpression>
#include <QTest>

using kest::ASMail;
using kest::FileURL;
using kest::test::attachedBytes;
using namespace Qt::StringLiterals;

namespace {

const QString noAccountChosen = QStringLiteral("*none found*");
const QJsonObject vocabularyOnly{{QStringLiteral("features"), QJsonArray()}};

QJsonObject merged(QJsonObject one, const QJsonObject &other)
{
    for (auto each = other.begin(); each != other.end(); ++each)
        one.insert(each.key(), each.value());
    return one;
}

} // namespace

/// ASMail and its script against the fake mail application, over a real bus.
class TestASMail : public kest::test::MailBackEndTest<ASMail>
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        startFake("caf\xe9.m4a");
        ASMail::loadScriptObjects();
    }

    void init() { makeBackEnd(); }

    // Each way of the mail application: whole messages in one call, or only the plain vocabulary.
    void newMessageIsFilledAndShown_data() { ways(); }
    void newMessageIsFilledAndShown()
    {
        QFETCH(QJsonObject, way);
        m_fake.configure(way);
        m_mail->mailNewMessageWithSubject(u"Subject ü"_s, u"Hi\n\n"_s, QVariantList{m_first.path()}, 4, noAccountChosen);
        const QJsonObject message = m_fake.onlyOutgoing();
        QCOMPARE(message[u"subject"].toString(), u"Subject ü"_s);
        QCOMPARE(message[u"content"].toString(), u"Hi\n\n"_s);
        QCOMPARE(message[u"visible"].toBool(), true);
        QCOMPARE(message[u"attachments"][0][u"name"].toString(), u"first.m4a"_s);
        QCOMPARE(message[u"attachments"][0][u"index"].toString(), u"4"_s);
        QCOMPARE(attachedBytes(message[u"attachments"][0]), QByteArray("first bytes"));
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 1);
        QCOMPARE(m_fake.state()[u"sent"].toArray().size(), 0);
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void wholeMessageTakesOneCallAndTheQuestionWhatIsOffered()
    {
        m_mail->mailNewMessageWithSubject(u"s"_s, u"b"_s, QVariantList{m_first.path()}, 4, noAccountChosen);
        QCOMPARE(m_fake.log(), (QStringList{u"Application.Features"_s, u"Application.NewMessage"_s}));
    }

    void attachmentsMayBeFilesOrPathsAlsoWithoutUtf8_data() { ways(); }
    void attachmentsMayBeFilesOrPathsAlsoWithoutUtf8()
    {
        QFETCH(QJsonObject, way);
        for (const QVariant &attachment : {QVariant(m_second.path()), QVariant::fromValue(m_second)}) {
            m_fake.configure(way);
            m_mail->mailNewMessageWithSubject(u"s"_s, u"b"_s, QVariantList{attachment}, 1, noAccountChosen);
            const QJsonValue attached = m_fake.onlyOutgoing()[u"attachments"][0];
            QCOMPARE(attached[u"name"].toString(), u"caf\ufffd.m4a"_s);
            QCOMPARE(attachedBytes(attached), QByteArray("second bytes"));
        }
    }

    void noListAndAnEmptyListAttachNothing_data() { ways(); }
    void noListAndAnEmptyListAttachNothing()
    {
        QFETCH(QJsonObject, way);
        for (const std::optional<QVariantList> &list : {std::optional<QVariantList>(), std::optional(QVariantList())}) {
            m_fake.configure(way);
            m_mail->mailNewMessageWithSubject(u"s"_s, u"b"_s, list, 1, noAccountChosen);
            QVERIFY(m_fake.onlyOutgoing()[u"visible"].toBool());
            QCOMPARE(m_fake.onlyOutgoing()[u"attachments"].toArray().size(), 0);
        }
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void accountByNameChoosesTheSender_data() { ways(); }
    void accountByNameChoosesTheSender()
    {
        QFETCH(QJsonObject, way);
        const QJsonArray home{u"1"_s, u"Home"_s, u"H <h@x.org>"_s};
        const QJsonArray work{u"2"_s, u"Work"_s, u"W <w@x.org>"_s};
        m_fake.configure(merged(way, {{u"accounts"_s, QJsonArray{home, work}}}));
        m_mail->mailNewMessageWithSubject(u"s"_s, u"b"_s, {}, 1, u"Work"_s);
        QCOMPARE(m_fake.onlyOutgoing()[u"sender"].toString(), u"W <w@x.org>"_s);
    }

    void unknownOrNoAccountLeavesTheDefaultSender_data() { ways(); }
    void unknownOrNoAccountLeavesTheDefaultSender()
    {
        QFETCH(QJsonObject, way);
        for (const QString &account : {noAccountChosen, u"Gone"_s, QString()}) {
            m_fake.configure(way);
            m_mail->mailNewMessageWithSubject(u"s"_s, u"b"_s, {}, 1, account);
            QCOMPARE(m_fake.onlyOutgoing()[u"sender"].toString(), u"Me <me@example.org>"_s);
        }
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void failureIsToldOnceAndInTheMailApplicationsWords_data()
    {
        QTest::addColumn<QJsonObject>("way");
        QTest::addColumn<int>("call");
        QTest::newRow("whole, features") << QJsonObject() << 1;
        QTest::newRow("whole, message") << QJsonObject() << 2;
        QTest::newRow("plain, features") << vocabularyOnly << 1;
        QTest::newRow("plain, make") << vocabularyOnly << 2;
        QTest::newRow("plain, attach") << vocabularyOnly << 3;
        QTest::newRow("plain, show") << vocabularyOnly << 4;
        QTest::newRow("plain, activate") << vocabularyOnly << 5;
    }
    void failureIsToldOnceAndInTheMailApplicationsWords()
    {
        QFETCH(QJsonObject, way);
        QFETCH(int, call);
        m_fake.configure(way);
        m_fake.at(static_cast<uint>(call), u"fail"_s, u"Failed It is raining."_s);
        m_mail->mailNewMessageWithSubject(u"s"_s, u"b"_s, QVariantList{m_first.path()}, 1, noAccountChosen);
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"It is raining."_s);
    }

    void messageThatCannotBeCompletedIsDiscarded_data()
    {
        QTest::addColumn<int>("call");
        QTest::addColumn<int>("left");
        QTest::newRow("attach") << 3 << 0;
        QTest::newRow("show") << 4 << 0;
        QTest::newRow("activate, when it is already seen") << 5 << 1;
    }
    void messageThatCannotBeCompletedIsDiscarded()
    {
        QFETCH(int, call);
        QFETCH(int, left);
        m_fake.configure(vocabularyOnly);
        m_fake.at(static_cast<uint>(call), u"fail"_s, u"Failed It is raining."_s);
        m_mail->mailNewMessageWithSubject(u"s"_s, u"b"_s, QVariantList{m_first.path()}, 1, noAccountChosen);
        QCOMPARE(m_fake.state()[u"outgoing"].toObject().size(), left);
    }

    void replyAnswersTheLastSelectedMessageAboveItsQuote_data() { ways(); }
    void replyAnswersTheLastSelectedMessageAboveItsQuote()
    {
        QFETCH(QJsonObject, way);
        const QJsonObject first{{u"subject"_s, u"first"_s}};
        const QJsonObject last{{u"subject"_s, u"last"_s}, {u"quote"_s, u"\n> words\n"_s}};
        m_fake.configure(merged(way, {{u"messages"_s, QJsonArray{first, last}}}));
        m_mail->mailReplyAppendingBodyText(u"Yes\n\n"_s, QVariantList{m_first.path()}, {}, 5, noAccountChosen);
        const QJsonObject reply = m_fake.onlyOutgoing();
        QCOMPARE(reply[u"subject"].toString(), u"Re: last"_s);
        QCOMPARE(reply[u"content"].toString(), u"Yes\n\n\n> words\n"_s);
        QCOMPARE(reply[u"visible"].toBool(), true);
        QCOMPARE(reply[u"attachments"][0][u"index"].toString(), u"5"_s);
        QCOMPARE(m_fake.state()[u"sent"].toArray().size() + m_fake.state()[u"deleted"].toArray().size(), 0);
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 1);
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void replyToAllTakesEverybody_data() { ways(); }
    void replyToAllTakesEverybody()
    {
        QFETCH(QJsonObject, way);
        const QJsonObject original{{u"cc"_s, QJsonArray{QJsonArray{u"C"_s, u"c@x.org"_s}}}};
        for (const bool all : {false, true}) {
            m_fake.configure(merged(way, {{u"messages"_s, QJsonArray{original}}}));
            m_mail->mailReplyAppendingBodyText(u"b"_s, {}, {.withReplyAll = all}, 0, noAccountChosen);
            QCOMPARE(m_fake.onlyOutgoing()[u"cc"].toArray().size(), all ? 1 : 0);
        }
    }

    void replyIsSentAndTheOriginalDeletedWhenAsked_data() { ways(); }
    void replyIsSentAndTheOriginalDeletedWhenAsked()
    {
        QFETCH(QJsonObject, way);
        m_fake.configure(way);
        const ASMail::Flags flags{.withReplyAll = false, .sendingReply = true, .deletingOriginal = true};
        m_mail->mailReplyAppendingBodyText(u"b"_s, {}, flags, 0, noAccountChosen);
        QCOMPARE(m_fake.state()[u"sent"].toArray().size(), 1);
        QCOMPARE(m_fake.state()[u"deleted"].toArray().size(), 1);
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 0);
        QCOMPARE(m_fake.onlyOutgoing()[u"visible"].toBool(), false);
    }

    void replyThatCannotBeSentIsShownAndTheOriginalStays()
    {
        m_fake.configure(vocabularyOnly);
        m_fake.at(6, u"fail"_s, u"Failed The server refused it."_s);
        const ASMail::Flags flags{.withReplyAll = false, .sendingReply = true, .deletingOriginal = true};
        m_mail->mailReplyAppendingBodyText(u"b"_s, {}, flags, 0, noAccountChosen);
        QCOMPARE(m_fake.log()[5], u"OutgoingMessage.Send"_s);
        QVERIFY(m_fake.onlyOutgoing()[u"visible"].toBool());
        QCOMPARE(m_fake.state()[u"deleted"].toArray().size(), 0);
        QCOMPARE(m_alerts.shown.size(), 1);
        QCOMPARE(m_alerts.shown[0].messageText, u"The server refused it."_s);
    }

    void replyWithNothingSelectedDoesNothing()
    {
        m_fake.configure({{u"messages"_s, QJsonArray()}});
        m_mail->mailReplyAppendingBodyText(u"b"_s, {}, {}, 0, noAccountChosen);
        QVERIFY(m_fake.state()[u"outgoing"].toObject().isEmpty());
        QVERIFY(m_alerts.shown.isEmpty());
    }

    void senderIsThatOfTheLastSelectedMessage()
    {
        const QJsonObject first{{u"replyTo"_s, u"Ann <a@x.org>"_s}};
        const QJsonObject last{{u"replyTo"_s, u"Bea <b@x.org>"_s}};
        m_fake.configure({{u"messages"_s, QJsonArray{first, last}}});
        QCOMPARE(m_mail->mailReplyGetSender(), u"Bea <b@x.org>"_s);
    }

    void theReplyAnswersTheMessageWhoseSenderWasAskedForWhateverIsSelectedNow()
    {
        const QJsonObject first{{u"subject"_s, u"first"_s}, {u"replyTo"_s, u"Ann <a@x.org>"_s}};
        const QJsonObject last{{u"subject"_s, u"last"_s}, {u"replyTo"_s, u"Bea <b@x.org>"_s}};
        m_fake.configure({{u"messages"_s, QJsonArray{first}}});
        QCOMPARE(m_mail->mailReplyGetSender(), u"Ann <a@x.org>"_s);
        for (const QString &subject : {u"Re: first"_s, u"Re: last"_s}) { // only the next reply
            m_fake.configure({{u"messages"_s, QJsonArray{first, last}}});
            m_mail->mailReplyAppendingBodyText(u"b"_s, {}, {}, 0, noAccountChosen);
            QCOMPARE(m_fake.onlyOutgoing()[u"subject"].toString(), subject);
        }
    }

    void senderIsNullWhenThereIsNone()
    {
        m_fake.configure({{u"messages"_s, QJsonArray()}});
        QVERIFY(m_mail->mailReplyGetSender().isNull());
        m_fake.configure();
        m_fake.at(2, u"fail"_s, u"Failed gone"_s);
        QVERIFY(m_mail->mailReplyGetSender().isNull());
    }

    void accountsAreListedByNameInTheirOrder()
    {
        m_fake.configure({{u"accounts"_s, QJsonArray{QJsonArray{u"2"_s, u"Work"_s, u"W <w@x.org>"_s},
                                                     QJsonArray{u"1"_s, u"Home"_s, u"H <h@x.org>"_s}}}});
        QCOMPARE(m_mail->retrieveEmailAccounts(), std::optional(QStringList{u"Work"_s, u"Home"_s}));
    }

    void accountsAreNothingWhenThereIsNoneOrTheyCannotBeAsked()
    {
        m_fake.configure({{u"accounts"_s, QJsonArray()}});
        QVERIFY(!m_mail->retrieveEmailAccounts());
        m_fake.configure();
        m_fake.at(1, u"fail"_s, u"Failed gone"_s);
        QVERIFY(!m_mail->retrieveEmailAccounts());
    }

    void whatAScriptThrowsIsToldAndTheNextOperationWorks()
    {
        auto mail = withScript("export function mailReplyGetSender() { return undefinedThing.x }\n"
                               "export function retrieveEmailAccounts() { return ['A', 'B'] }\n");
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"mail script failed"_s));
        QVERIFY(mail->mailReplyGetSender().isNull());
        QCOMPARE(m_alerts.shown.size(), 1);
        QVERIFY2(m_alerts.shown[0].informativeText.contains(u"undefinedThing"), "the reason is told");
        QCOMPARE(mail->retrieveEmailAccounts(), std::optional(QStringList{u"A"_s, u"B"_s}));
    }

    void scriptThatCannotBeReadIsTold_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("no script") << QByteArray("this is no script at all {");
        QTest::newRow("lacks it") << QByteArray("export function other() {}");
        QTest::newRow("throws at once") << QByteArray("throw new Error('no')");
        QTest::newRow("no function") << QByteArray("export const retrieveEmailAccounts = 7");
        QTest::newRow("unknown import") << QByteArray("import { x } from 'nowhere'");
    }
    void scriptThatCannotBeReadIsTold()
    {
        QFETCH(QByteArray, script);
        auto mail = withScript(script);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"mail script"_s));
        QVERIFY(!mail->retrieveEmailAccounts());
        QCOMPARE(m_alerts.shown.size(), 1);
    }

    void resultsOfOtherTypesReadAsNothing()
    {
        auto mail = withScript("export function mailReplyGetSender() { return 7 }\n"
                               "export function retrieveEmailAccounts() { return 'A' }\n");
        QVERIFY(mail->mailReplyGetSender().isNull());
        QVERIFY(!mail->retrieveEmailAccounts());
    }

    void anEmptySenderIsATextAndNoNull()
    {
        auto mail = withScript("export function mailReplyGetSender() { return '' }\n");
        QVERIFY(!mail->mailReplyGetSender().isNull());
        QVERIFY(mail->mailReplyGetSender().isEmpty());
    }

private:
    static void ways()
    {
        QTest::addColumn<QJsonObject>("way");
        QTest::newRow("whole messages") << QJsonObject();
        QTest::newRow("plain vocabulary") << vocabularyOnly;
    }

    std::unique_ptr<ASMail> withScript(const QByteArray &text)
    {
        const FileURL file = m_files.write("script.mjs", text);
        return std::make_unique<ASMail>(*m_transport, m_alerts, file.path());
    }
};

QTEST_GUILESS_MAIN(TestASMail)
#include "tst_asmail.moc"
