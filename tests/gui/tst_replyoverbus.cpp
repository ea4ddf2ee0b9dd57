#include "app/LocalizedStrings.h"
#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "support/FakeMail.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QTest>

#include <stdexcept>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString reply = QStringLiteral("Reply");
const QString replyAll = QStringLiteral("Reply All");
const QString recordingName = QStringLiteral("2024-03-05_14-07-09.m4a");

QJsonArray person(const QString &name, const QString &address)
{
    return {name, address};
}

} // namespace

/// The reply commands from the real window over a real bus to another process
/// that offers what a mail application offers, through both back ends.
class TestReplyOverBus : public QObject
{
    Q_OBJECT

private:
    FakeMail m_fake;
    std::unique_ptr<WindowHouse> m_house;
    std::unique_ptr<DBusMailTransport> m_mail;

    MainWindowController &controller() { return *m_house->controller; }
    void set(const QString &key, const QVariant &value) { m_house->settings->setObject(value, key); }
    QString body() { return m_fake.onlyOutgoing()[u"content"].toString(); }
    QJsonArray attachments() { return m_fake.onlyOutgoing()[u"attachments"].toArray(); }
    QJsonArray stated(const QString &key) { return m_fake.state()[key].toArray(); }
    QStringList recordings() { return QDir(m_house->delegate.recordings->path()).entryList(QDir::Files); }

    void bothBackEnds()
    {
        QTest::addColumn<bool>("script");
        QTest::newRow("script") << true;
        QTest::newRow("own") << false;
    }

    void useBackEnd()
    {
        QFETCH(bool, script);
        m_house->settings->setBool(script, SettingsKeys::useASClass);
    }

    void record()
    {
        m_house->click(u"Record"_s);
        m_house->click(u"Stop"_s);
    }

private Q_SLOTS:
    void initTestCase() { m_fake.start(); }

    void init()
    {
        m_fake.configure();
        m_house = std::make_unique<WindowHouse>();
        m_mail = std::make_unique<DBusMailTransport>(
            DBusMailTransport::Limits{.answer = 5s, .start = 5s, .startAgain = 1s});
        m_house->otherMail = m_mail.get();
        set(SettingsKeys::tReplyBody, u"Spoken"_s);
        m_house->openAndShow();
    }

    void cleanup()
    {
        m_house.reset();
        m_mail.reset();
    }

    void theReplyCarriesTextQuoteAndRecording_data() { bothBackEnds(); }
    void theReplyCarriesTextQuoteAndRecording()
    {
        useBackEnd();
        record();
        m_house->click(reply);
        QCOMPARE(m_fake.onlyOutgoing()[u"subject"].toString(), u"Re: Lunch"_s);
        QCOMPARE(body(), u"Spoken\n\n"_s + localizedString(taglineKey) + u"\n> Lunch?\n"_s);
        QCOMPARE(attachments().size(), 1);
        QCOMPARE(attachments()[0][u"name"].toString(), recordingName);
        QCOMPARE(attachments()[0][u"index"].toString(), u"8"_s);
        QVERIFY(m_fake.onlyOutgoing()[u"visible"].toBool());
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 1);
        QCOMPARE(stated(u"sent"_s).size() + stated(u"deleted"_s).size(), 0);
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(!controller().recordingExists());
        QCOMPARE(m_house->notice(), u"Ready to record"_s);
    }

    void replyAllTakesEverybodyAndReplyOnlyThoseWhoWrote_data() { bothBackEnds(); }
    void replyAllTakesEverybodyAndReplyOnlyThoseWhoWrote()
    {
        useBackEnd();
        const QJsonArray messages{QJsonObject{{u"cc"_s, QJsonArray{person(u"C"_s, u"c@example.org"_s)}}}};
        for (const QString &command : {reply, replyAll}) {
            m_fake.configure({{u"messages"_s, messages}});
            m_house->clock.advance(60);
            record();
            m_house->click(command);
            QCOMPARE(m_fake.onlyOutgoing()[u"to"].toArray().size(), 1);
            QCOMPARE(m_fake.onlyOutgoing()[u"cc"].toArray().size(), command == replyAll ? 1 : 0);
        }
    }

    // The window's own back end answers those to whom a reply to all would go; the script has its mail application choose.
    void replyGoesToAllToRecipientsUnlessTheScriptMakesIt_data() { bothBackEnds(); }
    void replyGoesToAllToRecipientsUnlessTheScriptMakesIt()
    {
        QFETCH(bool, script);
        useBackEnd();
        const QJsonArray everybody{person(u"Ben"_s, u"ben@example.org"_s), person(u"Carl"_s, u"carl@example.org"_s)};
        m_fake.configure({{u"messages"_s, QJsonArray{QJsonObject{{u"to"_s, everybody}}}}});
        record();
        m_house->click(reply);
        QCOMPARE(m_fake.onlyOutgoing()[u"to"].toArray(), script ? QJsonArray{everybody.first()} : everybody);
    }

    void onlyTheLastOfSeveralIsAnswered_data() { bothBackEnds(); }
    void onlyTheLastOfSeveralIsAnswered()
    {
        useBackEnd();
        m_fake.configure({{u"messages"_s, QJsonArray{QJsonObject{{u"subject"_s, u"First"_s}},
                                                     QJsonObject{{u"subject"_s, u"Second"_s}},
                                                     QJsonObject{{u"subject"_s, u"Last"_s}}}}});
        record();
        m_house->click(reply);
        QCOMPARE(m_fake.onlyOutgoing()[u"subject"].toString(), u"Re: Last"_s);
    }

    void sentAtOnceTheOriginalIsDeletedAfterwards_data() { bothBackEnds(); }
    void sentAtOnceTheOriginalIsDeletedAfterwards()
    {
        useBackEnd();
        set(SettingsKeys::bSendReplies, true);
        set(SettingsKeys::bDeleteOriginals, true);
        record();
        m_house->click(reply);
        QVERIFY(!m_fake.onlyOutgoing()[u"visible"].toBool());
        QCOMPARE(stated(u"sent"_s).size(), 1);
        QCOMPARE(stated(u"deleted"_s), QJsonArray{u"/org/kest/Mail1/message/1"_s});
        QCOMPARE(m_fake.state()[u"activations"].toInt(), 0);
    }

    void aFailedSendIsToldAndTheOriginalStays_data() { bothBackEnds(); }
    void aFailedSendIsToldAndTheOriginalStays()
    {
        QFETCH(bool, script);
        useBackEnd();
        set(SettingsKeys::bSendReplies, true);
        set(SettingsKeys::bDeleteOriginals, true);
        // With the script: two checks, the features, the whole reply.
        m_fake.at(script ? 4 : 14, u"fail"_s, u"Failed The server is down."_s);
        record();
        m_house->click(reply);
        QCOMPARE(m_fake.log().last(), script ? u"Application.Reply"_s : u"OutgoingMessage.Send"_s);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(m_house->alerts.shown.first().messageText, u"The server is down."_s);
        QCOMPARE(stated(u"sent"_s).size() + stated(u"deleted"_s).size(), 0);
        QCOMPARE(recordings(), QStringList(recordingName));
        QVERIFY(!controller().busy());
    }

    void theRecordingCarriesTheSendersName_data() { bothBackEnds(); }
    void theRecordingCarriesTheSendersName()
    {
        useBackEnd();
        set(SettingsKeys::bIncudeReplyToInName, true);
        m_fake.configure({{u"messages"_s, QJsonArray{QJsonObject{{u"replyTo"_s, u"Sales Desk <desk@example.org>"_s}}}}});
        record();
        m_house->click(reply);
        const QString name = u"2024-03-05_14-07-09_Sales Desk.m4a"_s;
        QCOMPARE(attachments()[0][u"name"].toString(), name);
        QCOMPARE(recordings(), QStringList(name));
    }

    void aSenderThatCannotBeReadIsWrittenAsNull_data() { bothBackEnds(); }
    void aSenderThatCannotBeReadIsWrittenAsNull()
    {
        QFETCH(bool, script);
        useBackEnd();
        set(SettingsKeys::bIncudeReplyToInName, true);
        const uint asked = script ? 3 : 4;
        m_fake.at(asked, u"fail"_s, u"Failed Not to be read."_s);
        record();
        m_house->click(reply);
        QCOMPARE(m_fake.log().value(asked - 1), u"Message.ReplyTo"_s);
        QCOMPARE(attachments()[0][u"name"].toString(), u"2024-03-05_14-07-09_(null).m4a"_s);
        QVERIFY(script || m_house->alerts.shown.isEmpty());
    }

    void preparedMessages_data()
    {
        QTest::addColumn<bool>("script");
        QTest::addColumn<QString>("name");
        for (const bool script : {true, false}) {
            QTest::addRow("%s, text", script ? "script" : "own") << script << u"NOTES.TXT"_s;
            QTest::addRow("%s, file", script ? "script" : "own") << script << u"notes.rtf"_s;
            QTest::addRow("%s, text that is gone", script ? "script" : "own") << script << u"gone.txt"_s;
        }
    }

    void preparedMessages()
    {
        QFETCH(QString, name);
        useBackEnd();
        const bool isText = name.endsWith(u".txt"_s, Qt::CaseInsensitive);
        if (!name.startsWith(u"gone"_s))
            m_house->writePrepared(name, "Hello");
        record();
        m_house->choosePrepared(name);
        m_house->click(replyAll);
        const QString beginning = !isText ? u"\n\n\n\n"_s + localizedString(taglineKey)
            : name.startsWith(u"gone"_s)  ? u"The file '"_s
                                          : u"Hello\n\n"_s + localizedString(textTaglineKey);
        QVERIFY2(body().startsWith(beginning), qPrintable(body()));
        QVERIFY(body().endsWith(u"\n> Lunch?\n"_s));
        QCOMPARE(attachments().size(), isText ? 0 : 1);
        if (!isText)
            QCOMPARE(attachments()[0][u"index"].toString(), u"1"_s);
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(controller().recordingExists());
        QVERIFY(controller().attachmentName().isNull());
    }

    void aMissingFolderMakesAReplyWithoutAttachment_data() { bothBackEnds(); }
    void aMissingFolderMakesAReplyWithoutAttachment()
    {
        useBackEnd();
        m_house->delegate.attachments.reset();
        m_house->choosePrepared(u"hello.txt"_s);
        m_house->click(reply);
        QCOMPARE(body(), u"\n\n\n\n"_s + localizedString(taglineKey) + u"\n> Lunch?\n"_s);
        QCOMPARE(attachments().size(), 0);
        QVERIFY(controller().attachmentName().isNull());
    }

    void noSelectionIsToldByBothBackEndsAlike_data() { bothBackEnds(); }
    void noSelectionIsToldByBothBackEndsAlike()
    {
        useBackEnd();
        m_fake.configure({{u"messages"_s, QJsonArray{QJsonObject{{u"selected"_s, false}}}}});
        record();
        m_house->click(reply);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        // One text for both, so what each shows is what the other shows.
        const AlertContent alert = m_house->alerts.shown.first();
        QCOMPARE(alert.messageText, u"Unable to Proceed"_s);
        QCOMPARE(alert.informativeText,
                 u"No messages appear to be selected in Mail. Please select a message and try again."_s);
        QCOMPARE(alert.buttons, QStringList(u"OK"_s));
        QVERIFY(alert.style == AlertContent::Style::Warning);
        QCOMPARE(m_fake.log(), QStringList({u"Application.Accounts"_s, u"Application.Selection"_s}));
        QVERIFY(controller().recordingExists());
    }

    void moreBccThanCcRecipientsLeavesTheRecordingUnused()
    {
        m_house->settings->setBool(false, SettingsKeys::useASClass);
        set(SettingsKeys::bIncudeReplyToInName, true);
        m_fake.configure({{u"messages"_s, QJsonArray{QJsonObject{{u"bcc"_s, QJsonArray{person(u"D"_s, u"d@x"_s)}}}}}});
        record();
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, controller().mailReplyAllToSelectedMessages());
        QVERIFY(m_house->alerts.shown.isEmpty());
        QVERIFY(!m_fake.onlyOutgoing()[u"visible"].toBool());
        QVERIFY(controller().recordingExists());
        QVERIFY(m_house->isEnabled(replyAll));
        QCOMPARE(recordings(), QStringList(recordingName));
        m_fake.configure();
        m_house->click(reply);
        QCOMPARE(attachments()[0][u"name"].toString(), u"2024-03-05_14-07-09_Ann.m4a"_s);
    }

    void aFailureIsToldAndALaterReplyWorks_data() { bothBackEnds(); }
    void aFailureIsToldAndALaterReplyWorks()
    {
        QFETCH(bool, script);
        useBackEnd();
        m_fake.at(script ? 4 : 10, u"fail"_s, u"Failed The disk of the mail application is full."_s);
        record();
        m_house->click(reply);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QVERIFY(m_house->alerts.shown.first().messageText.contains(u"disk"_s));
        m_house->clock.advance(60);
        m_fake.configure();
        record();
        m_house->click(reply);
        QCOMPARE(m_house->alerts.shown.size(), 1);
        QCOMPARE(attachments().size(), 1);
    }
};

QTEST_MAIN(TestReplyOverBus)
#include "tst_replyoverbus.moc"
