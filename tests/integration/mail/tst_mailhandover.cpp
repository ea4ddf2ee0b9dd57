#include "platform/linux/mail/DBusMailTransport.h"
#include "support/FakeMail.h"
#include "unit/mail/MailTestFiles.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonValue>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <sys/stat.h>

using namespace kest;
using namespace Qt::StringLiterals;

/// Files on their way to the mail application.
class TestMailHandOver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        if (!m_fake.isRunning())
            m_fake.start();
        m_fake.configure();
    }

    void namesArriveIntact_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("double quotes") << QByteArray("say \"hello\".m4a");
        QTest::newRow("single quotes") << QByteArray("it's.m4a");
        QTest::newRow("commas") << QByteArray("a, b, c.m4a");
        QTest::newRow("percent signs") << QByteArray("100 %1 %20.m4a");
        QTest::newRow("umlauts") << QByteArray("Grüße.m4a");
        QTest::newRow("emoji") << QByteArray("🎙 message.m4a");
        QTest::newRow("right-to-left mark") << QByteArray("a\u200fb.m4a");
        QTest::newRow("leading hyphen") << QByteArray("-rf.m4a");
        QTest::newRow("colon and backslash") << QByteArray("a:b\\c.m4a");
        QTest::newRow("line feed") << QByteArray("a\nb.m4a");
        QTest::newRow("255 bytes") << QByteArray(251, 'x') + ".m4a";
    }
    void namesArriveIntact()
    {
        QFETCH(QByteArray, name);
        const MailReply reply = hand(m_files.write(name, "bytes"));
        QVERIFY2(!reply.error, qPrintable(reply.error.value_or(Error()).description));
        const QJsonValue attached = m_fake.onlyOutgoing()[u"attachments"][0];
        QCOMPARE(attached[u"name"].toString().toUtf8(), name);
        QCOMPARE(test::attachedBytes(attached), QByteArray("bytes"));
    }

    void nameThatIsNotUtf8ArrivesWithAReplacementCharacter()
    {
        QVERIFY(!hand(m_files.write("caf\xe9.m4a", "bytes")).error);
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"][0][u"name"].toString(), u"caf\ufffd.m4a"_s);
    }

    void nameThatIsNotUtf8StaysAsShortAsANameMayBe_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("arrives");
        const QString longest = QString(83, QChar::ReplacementCharacter); // 249 bytes
        QTest::newRow("cut") << QByteArray(251, '\xe9') + ".m4a" << longest + u".m4a"_s;
        QTest::newRow("a character that does not fit") << QByteArray(248, '\xe9') + "\u00e4.m4a" << longest + u".m4a"_s;
        QTest::newRow("without extension") << QByteArray(255, '\xe9') << QString(85, QChar::ReplacementCharacter);
    }
    void nameThatIsNotUtf8StaysAsShortAsANameMayBe()
    {
        QFETCH(QByteArray, name);
        QVERIFY(!hand(m_files.write(name, "bytes")).error);
        QTEST(m_fake.onlyOutgoing()[u"attachments"][0][u"name"].toString(), "arrives");
    }

    void thirtyMegabytesArriveAndTellHowFarTheyAre()
    {
        QByteArray bytes(30'000'000, Qt::Uninitialized);
        for (qsizetype at = 0; at < bytes.size(); ++at)
            bytes[at] = static_cast<char>(at * 31 + at / 257);
        DBusMailTransport transport;
        QSignalSpy progress(&transport, &MailTransport::handOverProgressed);
        QVERIFY(!hand(m_files.write("long.m4a", bytes), &transport).error);
        const QJsonValue attached = m_fake.onlyOutgoing()[u"attachments"][0];
        const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
        QCOMPARE(attached[u"sha256"].toString().toLatin1(), hash.toHex());
        QVERIFY(progress.size() > 2);
        QCOMPARE(progress.last(), (QVariantList{bytes.size(), bytes.size()}));
    }

    void severalFilesTravelInOneCall()
    {
        const QVariantList files{QVariant::fromValue(MailFile{m_files.write("a.m4a", "first")}),
                                 QVariant::fromValue(MailFile{m_files.write("b.m4a", "second")})};
        DBusMailTransport transport;
        const MailReply reply = transport.call({u"/org/kest/Mail1"_s, u"org.kest.Mail1.Application"_s, u"NewMessage"_s,
                                                MailCall::Kind::Method,
                                                {u"s"_s, u"c"_s, QString(), quint64(1), QVariant(files)}});
        QVERIFY2(!reply.error, qPrintable(reply.error.value_or(Error()).failureReason));
        QCOMPARE(m_fake.onlyOutgoing()[u"attachments"].toArray().size(), 2);
    }

    void whatIsNoFileIsToldByNameAndNothingIsSent_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("missing") << QByteArray("gone.m4a");
        QTest::newRow("folder") << QByteArray("folder.m4a");
        QTest::newRow("pipe") << QByteArray("pipe.m4a");
        QTest::newRow("broken link") << QByteArray("link.m4a");
        QTest::newRow("link to a file that nobody chose") << QByteArray("swapped.m4a");
    }
    void whatIsNoFileIsToldByNameAndNothingIsSent()
    {
        QFETCH(QByteArray, name);
        ::mkdir(m_files.at("folder.m4a").nativePath().constData(), 0700);
        ::mkfifo(m_files.at("pipe.m4a").nativePath().constData(), 0600);
        std::ignore = ::symlink("/etc/passwd", m_files.at("swapped.m4a").nativePath().constData());
        std::ignore = ::symlink("nowhere", m_files.at("link.m4a").nativePath().constData());
        const MailReply reply = hand(m_files.at(name));
        QVERIFY(reply.error);
        QVERIFY2(reply.error->description.contains(QString::fromUtf8(name)), qPrintable(reply.error->description));
        QCOMPARE(m_fake.log(), QStringList{u"Application.MakeOutgoingMessage"_s});
    }

    void noLocationIsAnError()
    {
        QVERIFY(hand(FileURL()).error);
    }

    void fileThatGoesAwayAfterTheCallBeganStillArrives()
    {
        const FileURL file = m_files.write("short.m4a", "bytes");
        DBusMailTransport transport;
        const QString message = makeMessage(transport);
        m_fake.at(2, u"delay"_s, u"200"_s);
        bool gone = false;
        QTimer::singleShot(0, this, [&] { gone = ::unlink(file.nativePath().constData()) == 0; }); // while it is answered
        QVERIFY(!attach(transport, message, file).error);
        QVERIFY(gone);
        QCOMPARE(test::attachedBytes(m_fake.onlyOutgoing()[u"attachments"][0]), QByteArray("bytes"));
    }

private:
    MailReply hand(const FileURL &file, MailTransport *transport = nullptr)
    {
        DBusMailTransport own;
        MailTransport &used = transport ? *transport : own;
        return attach(used, makeMessage(used), file);
    }

    static QString makeMessage(MailTransport &transport)
    {
        const MailReply made = transport.call({u"/org/kest/Mail1"_s, u"org.kest.Mail1.Application"_s,
                                               u"MakeOutgoingMessage"_s, MailCall::Kind::Method, {u"s"_s, u"c"_s}});
        return made.values.value(0).toString();
    }

    static MailReply attach(MailTransport &transport, const QString &message, const FileURL &file)
    {
        const QString name = MailFile{file}.name();
        return transport.call({message, u"org.kest.Mail1.OutgoingMessage"_s, u"InsertAttachment"_s,
                               MailCall::Kind::Method, {name, QVariant::fromValue(MailFile{file}), quint64(1)}});
    }

    test::FakeMail m_fake;
    test::MailTestFiles m_files;
};

QTEST_GUILESS_MAIN(TestMailHandOver)
#include "tst_mailhandover.moc"
