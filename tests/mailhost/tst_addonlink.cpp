#include "AddonEnd.h"
#include "AddonLink.h"
#include "FileHandOver.h"

#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int longEnough = 5000;

QJsonObject hello(int protocol, const QString &version)
{
    return {{u"hello"_s, QJsonObject {{u"protocol"_s, protocol}, {u"version"_s, version}, {u"name"_s, u"Thunderbird"_s},
                                      {u"applicationVersion"_s, u"153.7.0"_s}}}};
}

} // namespace

class AddonLinkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void halvesOfOneVersionBelongTogether()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QSignalSpy greeted(&link, &AddonLink::greeted);
        QVERIFY(addon.send(hello(AddonLink::protocol, QStringLiteral(KEST_VERSION))));
        QTRY_COMPARE(greeted.size(), 1);
        QCOMPARE(link.mismatch(), QString());
        QCOMPARE(link.hello().applicationVersion, u"153.7.0"_s);
    }

    void halvesOfDifferentVersionsSaySoInWords_data()
    {
        QTest::addColumn<int>("protocol");
        QTest::addColumn<QString>("version");
        QTest::newRow("other release") << AddonLink::protocol << u"99.0.0"_s;
        QTest::newRow("other protocol") << AddonLink::protocol + 1 << QStringLiteral(KEST_VERSION);
    }

    void halvesOfDifferentVersionsSaySoInWords()
    {
        QFETCH(int, protocol);
        QFETCH(QString, version);
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QSignalSpy greeted(&link, &AddonLink::greeted);
        QVERIFY(addon.send(hello(protocol, version)));
        QTRY_COMPARE(greeted.size(), 1);
        QVERIFY(link.mismatch().contains(version));
        QVERIFY(link.mismatch().contains("Thunderbird"_L1));
    }

    void answersFindTheirRequestsInAnyOrder()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QStringList order;
        for (const QString &name : {u"first"_s, u"second"_s})
            link.request({{u"member"_s, name}}, {}, longEnough,
                         [&order, name](const AddonAnswer &answer) { order += name + answer.value.toString(); });
        const QList<QJsonObject> sent = sentBy(addon, 3);
        QVERIFY(addon.send({{u"answer"_s, sent[2]["call"_L1]}, {u"result"_s, u"-b"_s}}));
        QVERIFY(addon.send({{u"answer"_s, sent[1]["call"_L1]}, {u"result"_s, u"-a"_s}}));
        QTRY_COMPARE(order, QStringList({u"second-b"_s, u"first-a"_s}));
    }

    void aRequestWithoutAnswerFailsAtItsDeadlineAndALateAnswerIsPassedOver()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QStringList errors;
        link.request({}, {}, 20, [&errors](const AddonAnswer &answer) { errors += answer.errorName; });
        QTRY_COMPARE(errors, QStringList(u"TimedOut"_s));
        QVERIFY(addon.send({{u"answer"_s, sentBy(addon, 2)[1]["call"_L1]}, {u"result"_s, true}}));
        QTest::qWait(20);
        QCOMPARE(errors.size(), 1);
    }

    void theEndOfTheConnectionAnswersEverythingInWords()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QStringList errors;
        for (int request = 0; request < 3; ++request)
            link.request({}, {}, longEnough,
                         [&errors](const AddonAnswer &answer) { errors += answer.errorName + answer.errorWords; });
        addon.closeWriting();
        QTRY_COMPARE(errors.size(), 3);
        QVERIFY(errors[0].startsWith("NotConnected"_L1));
    }

    void howeverMuchOthersAskKestHasRoom()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QStringList told;
        const auto note = [&told](const AddonAnswer &answer) { told += answer.errorName; };
        for (int request = 0; request <= AddonLink::mostOfOthers; ++request)
            link.request({}, {}, longEnough, note, AddonLink::Asker::Anybody);
        QCOMPARE(told, QStringList(u"Failed"_s));
        for (int request = AddonLink::mostOfOthers; request < AddonLink::mostPending; ++request)
            link.request({}, {}, longEnough, note, AddonLink::Asker::Kest);
        QCOMPARE(told.size(), 1);
        link.request({}, {}, longEnough, note, AddonLink::Asker::Kest);
        QCOMPARE(told.size(), 2);
    }

    void anErrorKeepsItsNameAndWords()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QString told;
        link.request({}, {}, longEnough,
                     [&told](const AddonAnswer &answer) { told = answer.errorName + u':' + answer.errorWords; });
        const QJsonObject error {{u"name"_s, u"NoSuchObject"_s}, {u"message"_s, u"gone"_s}};
        QVERIFY(addon.send({{u"answer"_s, sentBy(addon, 2)[1]["call"_L1]}, {u"error"_s, error}}));
        QTRY_COMPARE(told, u"NoSuchObject:gone"_s);
    }

    void aFileTravelsInPiecesNoFasterThanTheyAreTaken()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QSignalSpy progress(&link, &AddonLink::handOverProgressed);
        QTemporaryFile file;
        QVERIFY(file.open());
        const QByteArray data = QByteArray(1024, 'x') + QByteArray(FileHandOver::pieceSize * 8, 'y');
        QCOMPARE(file.write(data), data.size());
        QVERIFY(file.flush());
        link.request({}, {QDBusUnixFileDescriptor(file.handle())}, longEnough, [](const AddonAnswer &) {});
        QList<QJsonObject> pieces = sentBy(addon, 1 + FileHandOver::window).mid(1);
        QTest::qWait(50);
        QCOMPARE(addon.takeMessages().size(), 0);
        QVERIFY(addon.channel->pendingBytes() == 0);
        QByteArray arrived;
        while (!pieces.isEmpty() && pieces.first().contains("chunk"_L1)) {
            const QJsonObject piece = pieces.takeFirst();
            arrived += QByteArray::fromBase64(piece["data"_L1].toString().toLatin1());
            QVERIFY(addon.send({{u"taken"_s, piece["chunk"_L1]}}));
            if (pieces.isEmpty())
                pieces = sentBy(addon, 1);
        }
        QVERIFY(arrived == data);
        QVERIFY(pieces.first().contains("call"_L1));
        QCOMPARE(progress.last()[0].toLongLong(), data.size());
    }

    void aHandOverThatStandsStillFailsAndTheNextOneGoesOn()
    {
        AddonEnd addon;
        AddonLink link(*addon.channel);
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("abc");
        file.flush();
        QStringList errors;
        const QList<QDBusUnixFileDescriptor> files {QDBusUnixFileDescriptor(file.handle())};
        link.request({}, files, 30, [&errors](const AddonAnswer &answer) { errors += answer.errorName; });
        link.request({{u"member"_s, u"next"_s}}, files, longEnough, [](const AddonAnswer &) {});
        QTRY_COMPARE(errors, QStringList(u"TimedOut"_s));
        const QList<QJsonObject> sent = sentBy(addon, 4);
        QCOMPARE(sent[2]["drop"_L1], sent[1]["chunk"_L1]);
        const QJsonObject piece = sent[3];
        QVERIFY(addon.send({{u"taken"_s, piece["chunk"_L1]}}));
        QCOMPARE(sentBy(addon, 1)[0]["member"_L1].toString(), u"next"_s);
    }

private:
    /// Waits until the host has sent so many more messages at least.
    static QList<QJsonObject> sentBy(AddonEnd &addon, qsizetype count)
    {
        QList<QJsonObject> messages;
        for (int attempt = 0; attempt < 2000 && messages.size() < count; ++attempt) {
            QTest::qWait(1);
            messages += addon.takeMessages();
        }
        return messages.size() >= count ? messages : QList<QJsonObject>(count);
    }
};

QTEST_GUILESS_MAIN(AddonLinkTest)
#include "tst_addonlink.moc"
