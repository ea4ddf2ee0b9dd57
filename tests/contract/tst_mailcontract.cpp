// What a mail application that offers org.kest.Mail1 must do. Runs against the service that KEST_MAIL_SERVICE names, for
// example org.kest.Mail1.Thunderbird, else against the fake mail application, which it starts.
//
// The service needs one account at least that can send, and one selected message at least that can be answered. Every
// message made here is discarded again; nothing is sent, and nothing that lies in a folder is touched.

#include "contract/MailCaller.h"
#include "platform/linux/mail/MailFileDescriptor.h"
#include "support/FakeMail.h"
#include "support/InterfaceDescription.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QTemporaryFile>
#include <QTest>

#include <unistd.h>

using kest::NamedDescriptor;
using namespace kest::test;
using namespace Qt::StringLiterals;

class TestMailContract : public QObject
{
    Q_OBJECT

public:
    /// Passed on by the bus.
    Q_SLOT void handOverProgressed(quint64 done, quint64 total) { m_progress.append({done, total}); }

private Q_SLOTS:
    void initTestCase()
    {
        kest::registerNamedDescriptor();
        QString service = qEnvironmentVariable("KEST_MAIL_SERVICE");
        if (service.isEmpty()) {
            m_fake.start();
            service = m_fake.busName();
        }
        QVERIFY2(isOnBus(service), "the mail application does not serve");
        // In Kest's place: it may take requests from the owner of this name alone.
        QVERIFY(QDBusConnection::sessionBus().interface()->registerService(
            u"org.kest.Kest.Mail"_s, QDBusConnectionInterface::ReplaceExistingService,
            QDBusConnectionInterface::DontAllowReplacement));
        m_mail = std::make_unique<MailCaller>(service);
        QVERIFY(QDBusConnection::sessionBus().connect(service, mailRoot, applicationInterface, u"HandOverProgressed"_s,
                                                      this, SLOT(handOverProgressed(quint64, quint64))));
    }

    void cleanup()
    {
        for (const QString &path : std::as_const(m_made))
            m_mail->call(path, outgoingInterface, u"Delete"_s);
        m_made.clear();
        m_progress.clear();
    }

    void everyObjectDescribesItselfAsTheInterfaceIsWritten()
    {
        const QString message = firstSelected();
        const QString outgoing = made(u"s"_s, u"c"_s);
        const QList<std::pair<QString, QString>> objects{
            {mailRoot, applicationInterface}, {message, messageInterface}, {outgoing, outgoingInterface}};
        for (const auto &[path, interface] : objects) {
            const auto answer = m_mail->call(path, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s);
            const QByteArray xml = answer.arguments().value(0).toString().toUtf8();
            QCOMPARE(describedMembers(xml, interface), describedMembers(mailInterfaceXml(), interface));
        }
    }

    void applicationSaysWhatItIs()
    {
        QCOMPARE(property(u"ProtocolVersion"_s), QVariant(1u));
        for (const QString &name : {u"Version"_s, u"Name"_s, u"ApplicationVersion"_s})
            QVERIFY2(!property(name).toString().isEmpty(), qPrintable(name));
        for (const QString &feature : property(u"Features"_s).toStringList())
            QVERIFY2((QStringList{u"NewMessage"_s, u"Reply"_s}.contains(feature)), qPrintable(feature));
    }

    void accountsHaveIdentifierNameAndSender()
    {
        const auto answer = m_mail->application(u"Accounts"_s);
        QCOMPARE(answer.signature(), u"a(sss)"_s);
        const auto accounts = MailCaller::rows(answer.arguments().value(0));
        QVERIFY(!accounts.isEmpty());
        for (const QStringList &account : accounts) {
            QVERIFY(!account[0].isEmpty() && !account[1].isEmpty());
            QVERIFY2(account[2].endsWith(u'>') && account[2].contains(u'@'), qPrintable(account[2]));
        }
    }

    void selectedMessagesSayWhereAnswersGo()
    {
        const QString message = firstSelected();
        QVERIFY2(message.startsWith(mailRoot + u"/message/"_s), qPrintable(message));
        const auto replyTo = m_mail->get(message, messageInterface, u"ReplyTo"_s);
        QVERIFY(value(replyTo).toString().contains(u'@'));
        QCOMPARE(MailCaller::errorWord(m_mail->get(message, messageInterface, u"Subject"_s)), QString());
    }

    void newMessageIsThereUnseenWithSubjectAndContent()
    {
        const QString subject = u"Grüße 🎙 “quoted”, 100 %"_s;
        const QString content = u"First\nsecond <b>&amp;\n\n"_s;
        const QString path = made(subject, content);
        QVERIFY2(path.startsWith(mailRoot + u"/outgoing/"_s), qPrintable(path));
        QCOMPARE(m_mail->outgoing(path, u"Subject"_s), QVariant(subject));
        QCOMPARE(m_mail->outgoing(path, u"Content"_s), QVariant(content));
        QCOMPARE(m_mail->outgoing(path, u"Visible"_s), QVariant(false));
    }

    void emptySubjectAndContentStayEmpty()
    {
        const QString path = made({}, {});
        QCOMPARE(m_mail->outgoing(path, u"Subject"_s).toString(), QString());
        QCOMPARE(m_mail->outgoing(path, u"Content"_s).toString(), QString());
    }

    void subjectAndContentCanBeWritten()
    {
        const QString path = made(u"old"_s, u"old"_s);
        QCOMPARE(MailCaller::errorWord(m_mail->set(path, outgoingInterface, u"Subject"_s, u"new é"_s)), QString());
        QCOMPARE(MailCaller::errorWord(m_mail->set(path, outgoingInterface, u"Content"_s, u"new\n\ntext"_s)), QString());
        QCOMPARE(m_mail->outgoing(path, u"Subject"_s), QVariant(u"new é"_s));
        QCOMPARE(m_mail->outgoing(path, u"Content"_s), QVariant(u"new\n\ntext"_s));
    }

    void senderIsOneOfTheIdentitiesAndNoOther()
    {
        const QString path = made(u"s"_s, u"c"_s);
        const QString sender = MailCaller::rows(m_mail->application(u"Accounts"_s).arguments().value(0)).first()[2];
        QCOMPARE(MailCaller::errorWord(m_mail->set(path, outgoingInterface, u"Sender"_s, sender)), QString());
        QCOMPARE(m_mail->outgoing(path, u"Sender"_s), QVariant(sender));
        const auto refused = m_mail->set(path, outgoingInterface, u"Sender"_s, u"Nobody <nobody@nowhere.invalid>"_s);
        QCOMPARE(MailCaller::errorWord(refused), u"InvalidArgument"_s);
        QCOMPARE(m_mail->outgoing(path, u"Sender"_s), QVariant(sender));
    }

    void recipientsAreAddedByKind()
    {
        const QString path = made(u"s"_s, u"c"_s);
        for (const QString &kind : {u"to"_s, u"cc"_s, u"bcc"_s}) {
            const QVariantList arguments{kind, u"Ann Lee"_s, kind + u"@example.org"_s};
            QCOMPARE(MailCaller::errorWord(m_mail->call(path, outgoingInterface, u"AddRecipient"_s, arguments)), QString());
        }
        const auto recipients = [&](const QString &name) { return MailCaller::rows(m_mail->outgoing(path, name)); };
        QCOMPARE(recipients(u"ToRecipients"_s), (QList<QStringList>{{u"Ann Lee"_s, u"to@example.org"_s}}));
        QCOMPARE(recipients(u"CcRecipients"_s), (QList<QStringList>{{u"Ann Lee"_s, u"cc@example.org"_s}}));
        QCOMPARE(recipients(u"BccRecipients"_s), (QList<QStringList>{{u"Ann Lee"_s, u"bcc@example.org"_s}}));
    }

    void recipientWithoutNameKeepsTheEmptyName()
    {
        const QString path = made(u"s"_s, u"c"_s);
        m_mail->call(path, outgoingInterface, u"AddRecipient"_s, {u"to"_s, QString(), u"ann@example.org"_s});
        QCOMPARE(MailCaller::rows(m_mail->outgoing(path, u"ToRecipients"_s)),
                 (QList<QStringList>{{QString(), u"ann@example.org"_s}}));
    }

    void unknownKindOfRecipientIsRefused()
    {
        const QString path = made(u"s"_s, u"c"_s);
        const auto answer = m_mail->call(path, outgoingInterface, u"AddRecipient"_s,
                                         {u"from"_s, u"Ann"_s, u"ann@example.org"_s});
        QCOMPARE(MailCaller::errorWord(answer), u"InvalidArgument"_s);
    }

    void attachmentsAreTakenAtAnyIndexAndReadFromTheirStart()
    {
        const QString path = made(u"s"_s, u"Hello"_s);
        const quint64 end = std::numeric_limits<quint64>::max();
        for (const quint64 index : {quint64(0), quint64(5), quint64(6), end}) {
            const auto answer = m_mail->call(path, outgoingInterface, u"InsertAttachment"_s,
                                             {u"a “b”, ü 🎙.m4a"_s, QVariant::fromValue(descriptor(1000, 500)), index});
            QCOMPARE(answer.errorMessage(), QString());
        }
    }

    void largeHandOverTellsHowFarItIs()
    {
        const qint64 size = 3'000'000;
        const QString path = made(u"s"_s, u"c"_s);
        // An answer comes after all that was told before it: what is in the queue is of the hand-overs before.
        QCoreApplication::processEvents();
        m_progress.clear();
        const auto answer = m_mail->call(path, outgoingInterface, u"InsertAttachment"_s,
                                         {u"a.m4a"_s, QVariant::fromValue(descriptor(size)), quint64(1)});
        QCOMPARE(answer.errorMessage(), QString());
        QTRY_VERIFY(!m_progress.isEmpty() && m_progress.last().first == quint64(size));
        for (qsizetype at = 0; at < m_progress.size(); ++at) {
            QCOMPARE(m_progress[at].second, quint64(size));
            QVERIFY(at == 0 || m_progress[at].first >= m_progress[at - 1].first);
        }
    }

    void visibleMessageStaysVisible()
    {
        const QString path = made(u"Shown by the contract test"_s, u"c"_s);
        QCOMPARE(m_mail->set(path, outgoingInterface, u"Visible"_s, true).errorMessage(), QString());
        QCOMPARE(m_mail->outgoing(path, u"Visible"_s), QVariant(true));
        QVERIFY(!MailCaller::errorWord(m_mail->set(path, outgoingInterface, u"Visible"_s, false)).isEmpty());
        QCOMPARE(m_mail->outgoing(path, u"Visible"_s), QVariant(true));
        QCOMPARE(m_mail->application(u"Activate"_s).errorMessage(), QString());
    }

    void deletedMessageAnswersNothingAnyMore()
    {
        const QString path = made(u"s"_s, u"c"_s);
        QCOMPARE(MailCaller::errorWord(m_mail->call(path, outgoingInterface, u"Delete"_s)), QString());
        QCOMPARE(MailCaller::errorWord(m_mail->get(path, outgoingInterface, u"Subject"_s)), u"NoSuchObject"_s);
        QCOMPARE(MailCaller::errorWord(m_mail->call(path, outgoingInterface, u"Send"_s)), u"NoSuchObject"_s);
        QCOMPARE(MailCaller::errorWord(m_mail->call(path, outgoingInterface, u"Delete"_s)), u"NoSuchObject"_s);
    }

    void unknownObjectsAnswerNothing()
    {
        const QString message = mailRoot + u"/message/none"_s;
        const QString outgoing = mailRoot + u"/outgoing/none"_s;
        QCOMPARE(MailCaller::errorWord(m_mail->get(message, messageInterface, u"ReplyTo"_s)), u"NoSuchObject"_s);
        QCOMPARE(MailCaller::errorWord(m_mail->call(message, messageInterface, u"Reply"_s, {false, false})),
                 u"NoSuchObject"_s);
        QCOMPARE(MailCaller::errorWord(m_mail->get(outgoing, outgoingInterface, u"Content"_s)), u"NoSuchObject"_s);
    }

    void argumentsOfOtherTypesAreRefused()
    {
        QVERIFY(!MailCaller::errorWord(m_mail->application(u"MakeOutgoingMessage"_s, {u"only one"_s})).isEmpty());
        QVERIFY(!MailCaller::errorWord(m_mail->application(u"MakeOutgoingMessage"_s, {1, 2})).isEmpty());
        QVERIFY(!MailCaller::errorWord(m_mail->application(u"NoSuchMember"_s)).isEmpty());
        const QString path = made(u"s"_s, u"c"_s);
        QVERIFY(!MailCaller::errorWord(m_mail->set(path, outgoingInterface, u"Visible"_s, u"true"_s)).isEmpty());
    }

    void replyWithoutWindowHasRecipientsSubjectAndQuote()
    {
        const auto answer = m_mail->call(firstSelected(), messageInterface, u"Reply"_s, {false, true});
        const QString path = MailCaller::path(answer);
        QVERIFY2(path.startsWith(mailRoot + u"/outgoing/"_s), qPrintable(answer.errorMessage()));
        m_made.append(path);
        QVERIFY(m_mail->outgoing(path, u"Subject"_s).toString().startsWith(u"Re: "_s));
        QVERIFY(!m_mail->outgoing(path, u"Content"_s).toString().isEmpty());
        QVERIFY(m_mail->outgoing(path, u"Sender"_s).toString().contains(u'@'));
        QVERIFY(!MailCaller::rows(m_mail->outgoing(path, u"ToRecipients"_s)).isEmpty());
        QCOMPARE(m_mail->outgoing(path, u"Visible"_s), QVariant(false));
    }

    void wholeNewMessageIsShown()
    {
        QVERIFY2(offers(u"NewMessage"_s), "this mail application does not offer it");
        const QList<NamedDescriptor> files{{u"a.m4a"_s, descriptor(1000)}, {u"b.m4a"_s, descriptor(0)}};
        const QVariantList arguments{u"Whole"_s, u"Text\n\n"_s, u"no such account"_s, quint64(5), QVariant::fromValue(files)};
        const auto answer = m_mail->application(u"NewMessage"_s, arguments);
        const QString path = MailCaller::path(answer);
        QVERIFY2(path.startsWith(mailRoot + u"/outgoing/"_s), qPrintable(answer.errorMessage()));
        m_made.append(path);
        QCOMPARE(m_mail->outgoing(path, u"Subject"_s), QVariant(u"Whole"_s));
        QVERIFY(m_mail->outgoing(path, u"Content"_s).toString().startsWith(u"Text\n\n"_s));
        QCOMPARE(m_mail->outgoing(path, u"Visible"_s), QVariant(true));
    }

    void wholeReplyPutsTheTextAboveTheQuote()
    {
        QVERIFY2(offers(u"Reply"_s), "this mail application does not offer it");
        const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(firstSelected())), u"Answer\n\n"_s, QString(), false,
                                     false, false, quint64(8), QVariant::fromValue(QList<NamedDescriptor>())};
        const auto answer = m_mail->application(u"Reply"_s, arguments);
        const QString path = MailCaller::path(answer);
        QVERIFY2(path.startsWith(mailRoot + u"/outgoing/"_s), qPrintable(answer.errorMessage()));
        m_made.append(path);
        const QString content = m_mail->outgoing(path, u"Content"_s).toString();
        QVERIFY(content.startsWith(u"Answer\n\n"_s) && content.size() > 8);
        QCOMPARE(m_mail->outgoing(path, u"Visible"_s), QVariant(true));
    }

    void wholeReplyToNoMessageIsRefused()
    {
        QVERIFY2(offers(u"Reply"_s), "this mail application does not offer it");
        const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(mailRoot + u"/message/none"_s)), u"Answer"_s,
                                     QString(), false, false, false, quint64(0),
                                     QVariant::fromValue(QList<NamedDescriptor>())};
        QCOMPARE(MailCaller::errorWord(m_mail->application(u"Reply"_s, arguments)), u"NoSuchObject"_s);
    }

private:
    static QVariant value(const QDBusMessage &answer)
    {
        return answer.arguments().value(0).value<QDBusVariant>().variant();
    }

    QVariant property(const QString &name) const { return value(m_mail->get(mailRoot, applicationInterface, name)); }

    /// Features may be left out; the mail applications that this is run with
    /// must offer all.
    bool offers(const QString &feature) const { return property(u"Features"_s).toStringList().contains(feature); }

    QString firstSelected() const
    {
        const auto answer = m_mail->application(u"Selection"_s);
        const auto paths = qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().value(0));
        return paths.isEmpty() ? QString() : paths.first().path();
    }

    QString made(const QString &subject, const QString &content)
    {
        const QString path = MailCaller::path(m_mail->application(u"MakeOutgoingMessage"_s, {subject, content}));
        m_made.append(path);
        return path;
    }

    // A descriptor of a file of this size that stands at this place.
    QDBusUnixFileDescriptor descriptor(qint64 size, qint64 place = 0)
    {
        QTemporaryFile file;
        if (!file.open() || file.write(QByteArray(size, 'x')) != size || !file.flush())
            qFatal("cannot write the test's file");
        ::lseek(file.handle(), place, SEEK_SET);
        return QDBusUnixFileDescriptor(file.handle());
    }

    FakeMail m_fake;
    std::unique_ptr<MailCaller> m_mail;
    QStringList m_made;
    QList<std::pair<quint64, quint64>> m_progress;
};

QTEST_GUILESS_MAIN(TestMailContract)
#include "tst_mailcontract.moc"
