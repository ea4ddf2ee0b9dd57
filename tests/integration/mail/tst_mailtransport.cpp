#include "platform/linux/mail/DBusMailTransport.h"
#include "platform/linux/mail/MailErrors.h"
#include "support/FakeMail.h"

#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace kest;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString rootPath = QStringLiteral("/org/kest/Mail1");
const QString applicationInterface = QStringLiteral("org.kest.Mail1.Application");

MailCall applicationCall(const QString &member, const QVariantList &arguments = {})
{
    return {rootPath, applicationInterface, member, MailCall::Kind::Method, arguments};
}

MailErrorCode codeOf(const MailReply &reply)
{
    return reply.error ? static_cast<MailErrorCode>(reply.error->code) : MailErrorCode{};
}

} // namespace

/// The transport against a mail application that fails, waits, hangs and
/// vanishes.
class TestMailTransport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        if (!m_fake.isRunning())
            m_fake.start();
        m_fake.configure();
        m_transport = std::make_unique<DBusMailTransport>();
    }

    void cleanup() { m_fake.thaw(); }

    void callsAreAnsweredInPlainValues()
    {
        const MailReply accounts = m_transport->call(applicationCall(u"Accounts"_s));
        QVERIFY(!accounts.error);
        QCOMPARE(accounts.values[0].toList()[0].toStringList(),
                 (QStringList{u"account1"_s, u"Home"_s, u"Me <me@example.org>"_s}));
        QCOMPARE(m_transport->call(applicationCall(u"Selection"_s)).values[0].toStringList(),
                 QStringList{rootPath + u"/message/1"_s});
    }

    void propertiesAreReadAndWritten()
    {
        const QString path =
            m_transport->call(applicationCall(u"MakeOutgoingMessage"_s, {u"a"_s, u"b"_s})).values[0].toString();
        MailCall subject{path, u"org.kest.Mail1.OutgoingMessage"_s, u"Subject"_s, MailCall::Kind::WriteProperty, {u"new"_s}};
        QVERIFY(!m_transport->call(subject).error);
        subject.kind = MailCall::Kind::ReadProperty;
        subject.arguments.clear();
        QCOMPARE(m_transport->call(subject).values[0].toString(), u"new"_s);
    }

    void textWithANullCharacterArrivesWhole()
    {
        m_transport->call(applicationCall(u"MakeOutgoingMessage"_s, {u"s"_s, u"a"_s + QChar() + u"b"_s}));
        QCOMPARE(m_fake.onlyOutgoing()[u"content"].toString(), u"a\ufffdb"_s);
    }

    void unknownMembersAndWrongArgumentsFailWithoutACall()
    {
        QCOMPARE(codeOf(m_transport->call(applicationCall(u"Explode"_s))), MailErrorCode::Unsupported);
        QCOMPARE(codeOf(m_transport->call(applicationCall(u"MakeOutgoingMessage"_s, {u"one"_s}))),
                 MailErrorCode::InvalidArgument);
        QCOMPARE(m_fake.log(), QStringList());
    }

    void timersRunAndFurtherCallsFailAtOnceWhileACallWaits()
    {
        QSignalSpy busy(m_transport.get(), &MailTransport::busyChanged);
        int ticks = 0;
        std::optional<MailReply> nested;
        QTimer timer;
        timer.callOnTimeout(this, [&] {
            if (++ticks == 2)
                nested = m_transport->call(applicationCall(u"Selection"_s));
            if (ticks == 10)
                m_fake.thaw(); // it answers now
        });
        timer.start(10ms);
        m_fake.freeze();
        QVERIFY(!m_transport->call(applicationCall(u"Accounts"_s)).error);
        QVERIFY(ticks >= 10);
        QVERIFY(nested && codeOf(*nested) == MailErrorCode::Busy);
        QCOMPARE(m_fake.log(), QStringList{u"Application.Accounts"_s});
        QCOMPARE(busy, (QList<QVariantList>{{true}, {false}}));
        QVERIFY(!m_transport->isBusy());
    }

    void errorsKeepTheirMeaningAndTheirWords_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("code");
        QTest::newRow("no such object") << u"NoSuchObject"_s << int(MailErrorCode::NoSuchObject);
        QTest::newRow("invalid argument") << u"InvalidArgument"_s << int(MailErrorCode::InvalidArgument);
        QTest::newRow("not connected") << u"NotConnected"_s << int(MailErrorCode::NotConnected);
        QTest::newRow("mismatch") << u"Mismatch"_s << int(MailErrorCode::Mismatch);
        QTest::newRow("timed out") << u"TimedOut"_s << int(MailErrorCode::TimedOut);
        QTest::newRow("unsupported") << u"Unsupported"_s << int(MailErrorCode::Unsupported);
        QTest::newRow("failed") << u"Failed"_s << int(MailErrorCode::Failed);
        QTest::newRow("a later one") << u"SomethingNew"_s << int(MailErrorCode::Failed);
    }
    void errorsKeepTheirMeaningAndTheirWords()
    {
        QFETCH(QString, name);
        QFETCH(int, code);
        m_fake.at(1, u"fail"_s, name + u" It is raining."_s);
        const MailReply reply = m_transport->call(applicationCall(u"Accounts"_s));
        QVERIFY(reply.error);
        QVERIFY(reply.values.isEmpty());
        QCOMPARE(reply.error->code, code);
        QCOMPARE(reply.error->domain, mailErrorDomain);
        QVERIFY((reply.error->description + reply.error->failureReason).contains(u"It is raining."));
        QVERIFY(!reply.error->description.isEmpty());
    }

    void aMailThatMayBeSentAllTheSameIsSaidToBe_data()
    {
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("fault");
        QTest::addColumn<bool>("inDoubt");
        QTest::newRow("send, late") << u"Send"_s << u"TimedOut"_s << true;
        QTest::newRow("send, refused") << u"Send"_s << u"Failed"_s << false;
        QTest::newRow("subject, late") << u"Subject"_s << u"TimedOut"_s << false;
    }
    void aMailThatMayBeSentAllTheSameIsSaidToBe()
    {
        QFETCH(QString, member);
        QFETCH(QString, fault);
        const QString path = m_transport->call(applicationCall(u"MakeOutgoingMessage"_s, {u"a"_s, u"b"_s})).values[0].toString();
        m_fake.at(1, u"fail"_s, fault + u" It is raining."_s);
        const auto kind = member == u"Send" ? MailCall::Kind::Method : MailCall::Kind::ReadProperty;
        const MailReply reply = m_transport->call({path, u"org.kest.Mail1.OutgoingMessage"_s, member, kind, {}});
        QVERIFY(reply.error);
        QTEST(reply.error->failureReason.contains(u"sent all the same"), "inDoubt");
    }

    void oneThatVanishesWhileItSendsLeavesDoubt()
    {
        const QString path = m_transport->call(applicationCall(u"MakeOutgoingMessage"_s, {u"a"_s, u"b"_s})).values[0].toString();
        m_fake.at(1, u"vanish"_s);
        const MailReply reply = m_transport->call({path, u"org.kest.Mail1.OutgoingMessage"_s, u"Send"_s, MailCall::Kind::Method, {}});
        QCOMPARE(codeOf(reply), MailErrorCode::Vanished);
        QVERIFY(reply.error->failureReason.contains(u"sent all the same"));
    }

    void nonsenseForAnAnswerIsAnError()
    {
        m_fake.at(1, u"garble"_s);
        m_fake.at(2, u"garble"_s);
        QCOMPARE(codeOf(m_transport->call(applicationCall(u"Accounts"_s))), MailErrorCode::Malformed);
        const MailCall features{rootPath, applicationInterface, u"Features"_s, MailCall::Kind::ReadProperty, {}};
        QCOMPARE(codeOf(m_transport->call(features)), MailErrorCode::Malformed);
        QVERIFY(!m_transport->call(applicationCall(u"Accounts"_s)).error);
    }

    void mailApplicationThatVanishesIsSaidSoAndALaterOneServes()
    {
        QSignalSpy vanished(m_transport.get(), &MailTransport::mailApplicationVanished);
        QSignalSpy appeared(m_transport.get(), &MailTransport::mailApplicationAppeared);
        QSignalSpy unreachable(m_transport.get(), &MailTransport::mailApplicationUnreachable);
        m_fake.at(1, u"vanish"_s);
        QElapsedTimer elapsed;
        elapsed.start();
        QCOMPARE(codeOf(m_transport->call(applicationCall(u"Accounts"_s))), MailErrorCode::Vanished);
        QVERIFY(elapsed.elapsed() < 2000);
        QCOMPARE(unreachable.size(), 1);
        QTRY_COMPARE(vanished.size(), 1);
        m_fake.start();
        QVERIFY(!m_transport->call(applicationCall(u"Accounts"_s)).error);
        QCOMPARE(appeared.size(), 2);
    }

    void answerOfOneThatVanishesRightAfterwardsCounts()
    {
        m_fake.at(1, u"vanish-after"_s);
        QVERIFY(!m_transport->call(applicationCall(u"Accounts"_s)).error);
        QTRY_VERIFY(!m_fake.isRunning());
    }

    void hangingCallEndsAtItsTimeLimit()
    {
        DBusMailTransport transport({.answer = 200ms});
        m_fake.at(1, u"hang"_s);
        QElapsedTimer elapsed;
        elapsed.start();
        QCOMPARE(codeOf(transport.call(applicationCall(u"Accounts"_s))), MailErrorCode::TimedOut);
        QVERIFY(elapsed.elapsed() >= 180 && elapsed.elapsed() < 2000);
        QVERIFY(!transport.call(applicationCall(u"Accounts"_s)).error);
    }

    void stoppedMailApplicationEndsAtTheTimeLimitAndServesWhenItGoesOn()
    {
        DBusMailTransport transport({.answer = 200ms});
        QVERIFY(!transport.call(applicationCall(u"Accounts"_s)).error);
        m_fake.freeze();
        QCOMPARE(codeOf(transport.call(applicationCall(u"Accounts"_s))), MailErrorCode::TimedOut);
        m_fake.thaw();
        QVERIFY(!transport.call(applicationCall(u"Accounts"_s)).error);
    }

    void aHandOverThatMovesOnDoesNotRunOutOfTime()
    {
        DBusMailTransport transport({.answer = 600ms});
        m_fake.at(1, u"progress"_s, u"1500"_s);
        const MailReply reply = transport.call(applicationCall(u"Accounts"_s));
        QVERIFY2(!reply.error, qPrintable(reply.error.value_or(Error()).description));
    }

    void afterACallThatWasNotAnsweredInTimeTheNextWaitsForLess()
    {
        DBusMailTransport transport({.answer = 60s, .answerAgain = 100ms});
        m_fake.at(1, u"fail"_s, u"TimedOut Thunderbird did not answer in time."_s);
        m_fake.at(2, u"hang"_s);
        QCOMPARE(codeOf(transport.call(applicationCall(u"Accounts"_s))), MailErrorCode::TimedOut);
        QElapsedTimer elapsed;
        elapsed.start();
        QCOMPARE(codeOf(transport.call(applicationCall(u"Activate"_s))), MailErrorCode::TimedOut);
        QVERIFY(!elapsed.hasExpired(30'000));
    }

    void anAnswerInTimeGivesTheNextCallTheWholeLimitAgain()
    {
        DBusMailTransport transport({.answer = 60s, .answerAgain = 2s});
        m_fake.at(1, u"fail"_s, u"TimedOut Thunderbird did not answer in time."_s);
        m_fake.at(3, u"delay"_s, u"3000"_s);
        QCOMPARE(codeOf(transport.call(applicationCall(u"Accounts"_s))), MailErrorCode::TimedOut);
        QVERIFY(!transport.call(applicationCall(u"Accounts"_s)).error);
        QVERIFY(!transport.call(applicationCall(u"Accounts"_s)).error);
    }

    void halvesOfDifferentVersionsAreSaidSo()
    {
        m_fake.configure({{u"protocolVersion"_s, 2}});
        const MailReply reply = m_transport->call(applicationCall(u"Accounts"_s));
        QCOMPARE(codeOf(reply), MailErrorCode::Mismatch);
        QVERIFY(reply.error->description.contains(u"different versions"));
        QCOMPARE(m_fake.log(), QStringList());
        m_fake.configure();
        QVERIFY(!m_transport->call(applicationCall(u"Accounts"_s)).error);
    }

    void versionIsCheckedAgainWhenTheMailApplicationIsReplaced()
    {
        QVERIFY(!m_transport->call(applicationCall(u"Accounts"_s)).error);
        m_fake.start();
        m_fake.configure({{u"protocolVersion"_s, 2}});
        QCOMPARE(codeOf(m_transport->call(applicationCall(u"Accounts"_s))), MailErrorCode::Mismatch);
    }

    void endOfTheProgramEndsAWaitingCall()
    {
        m_fake.at(1, u"hang"_s);
        QTimer::singleShot(100ms, this, [] { QCoreApplication::exit(); });
        QCOMPARE(codeOf(m_transport->call(applicationCall(u"Accounts"_s))), MailErrorCode::Ending);
    }

    void focusOfTheMailApplicationIsPassedOnWithoutACallBefore()
    {
        QSignalSpy appeared(m_transport.get(), &MailTransport::mailApplicationAppeared);
        QSignalSpy gained(m_transport.get(), &MailTransport::mailApplicationFocusGained);
        QSignalSpy lost(m_transport.get(), &MailTransport::mailApplicationFocusLost);
        QTRY_COMPARE(appeared.size(), 1);
        QCOMPARE(appeared[0][0].toString(), m_fake.busName());
        m_fake.emitFocus(true);
        QTRY_COMPARE(gained.size(), 1);
        m_fake.emitFocus(false);
        QTRY_COMPARE(lost.size(), 1);
        QCOMPARE(gained.size(), 1);
    }

    void signalsOfAnybodyElseAreIgnored()
    {
        QSignalSpy appeared(m_transport.get(), &MailTransport::mailApplicationAppeared);
        QSignalSpy gained(m_transport.get(), &MailTransport::mailApplicationFocusGained);
        QSignalSpy progress(m_transport.get(), &MailTransport::handOverProgressed);
        QTRY_COMPARE(appeared.size(), 1);
        auto stranger = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"stranger"_s);
        const QString kest = stranger.interface()->serviceOwner(u"org.kest.Kest.Mail"_s);
        QVERIFY(!kest.isEmpty());
        for (const QString &receiver : {QString(), kest}) {
            for (const auto &[name, values] : {std::pair{u"FocusGained"_s, QVariantList()},
                                              std::pair{u"HandOverProgressed"_s, QVariantList{quint64(1), quint64(2)}}}) {
                auto signal = receiver.isEmpty()
                    ? QDBusMessage::createSignal(rootPath, applicationInterface, name)
                    : QDBusMessage::createTargetedSignal(receiver, rootPath, applicationInterface, name);
                signal.setArguments(values);
                QVERIFY(stranger.send(signal));
            }
        }
        QVERIFY(stranger.interface()->registeredServiceNames().isValid()); // the bus has passed them on
        QDBusConnection::disconnectFromBus(u"stranger"_s);
        m_fake.emitFocus(true);
        QTRY_COMPARE(gained.size(), 1);
        QCOMPARE(progress.size(), 0);
    }

    void itsOwnNameIsItsOwn()
    {
        QTRY_VERIFY(test::isOnBus(u"org.kest.Kest.Mail"_s));
        auto stranger = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"stranger"_s);
        QVERIFY(!stranger.registerService(u"org.kest.Kest.Mail"_s));
        QDBusConnection::disconnectFromBus(u"stranger"_s);
        m_transport.reset();
        QTRY_VERIFY(!test::isOnBus(u"org.kest.Kest.Mail"_s));
    }

private:
    test::FakeMail m_fake;
    std::unique_ptr<DBusMailTransport> m_transport;
};

QTEST_GUILESS_MAIN(TestMailTransport)
#include "tst_mailtransport.moc"
