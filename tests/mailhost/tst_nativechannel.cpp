#include "AddonEnd.h"

#include <QSignalSpy>
#include <QTest>

#include <csignal>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

class NativeChannelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aMessageArrivesWhole()
    {
        AddonEnd addon;
        QSignalSpy received(addon.channel.get(), &NativeChannel::received);
        QVERIFY(addon.send({{u"text"_s, u"Grüße 🎤"_s}}));
        QTRY_COMPARE(received.size(), 1);
        QCOMPARE(received[0][0].toJsonObject()["text"_L1].toString(), u"Grüße 🎤"_s);
    }

    void aMessageThatComesByteByByteArrivesWhole()
    {
        AddonEnd addon;
        QSignalSpy received(addon.channel.get(), &NativeChannel::received);
        const QByteArray frame = AddonEnd::framed(R"({"slow":true})");
        for (const char byte : frame) {
            QCOMPARE(received.size(), 0);
            QVERIFY(addon.write(QByteArray(1, byte)));
            QTest::qWait(1);
        }
        QTRY_COMPARE(received.size(), 1);
    }

    void severalMessagesInOneReadArriveInOrder()
    {
        AddonEnd addon;
        QSignalSpy received(addon.channel.get(), &NativeChannel::received);
        QVERIFY(addon.write(AddonEnd::framed(R"({"n":1})") + AddonEnd::framed(R"({"n":2})")
                            + AddonEnd::framed(R"({"n":3})")));
        QTRY_COMPARE(received.size(), 3);
        QCOMPARE(received[2][0].toJsonObject()["n"_L1].toInt(), 3);
    }

    void senselessMessagesArePassedOver_data()
    {
        QTest::addColumn<QByteArray>("frame");
        QTest::newRow("empty") << AddonEnd::length(0);
        QTest::newRow("no JSON") << AddonEnd::framed("{{{");
        QTest::newRow("no object") << AddonEnd::framed("[1]");
        QTest::newRow("no UTF-8") << AddonEnd::framed("{\"a\":\"\xff\xfe\"}");
        QTest::newRow("deeply nested") << AddonEnd::framed(QByteArray(5000, '['));
    }

    void senselessMessagesArePassedOver()
    {
        QFETCH(QByteArray, frame);
        AddonEnd addon;
        QSignalSpy received(addon.channel.get(), &NativeChannel::received);
        QSignalSpy closed(addon.channel.get(), &NativeChannel::closed);
        QVERIFY(addon.write(frame + AddonEnd::framed(R"({"after":true})")));
        QTRY_VERIFY(!received.isEmpty());
        QVERIFY(received.last()[0].toJsonObject().contains("after"_L1));
        QCOMPARE(closed.size(), 0);
    }

    void anAnnouncedMessageBeyondTheLimitEndsTheConnection_data()
    {
        QTest::addColumn<quint32>("length");
        QTest::newRow("just too long") << NativeChannel::incomingLimit + 1;
        QTest::newRow("the longest there is") << 0xffffffffU;
    }

    void anAnnouncedMessageBeyondTheLimitEndsTheConnection()
    {
        QFETCH(quint32, length);
        AddonEnd addon;
        QSignalSpy closed(addon.channel.get(), &NativeChannel::closed);
        QVERIFY(addon.write(AddonEnd::length(length)));
        QTRY_COMPARE(closed.size(), 1);
        QVERIFY(closed[0][0].toString().contains(QString::number(length)));
    }

    void theEndIsToldOnce()
    {
        AddonEnd addon;
        QSignalSpy closed(addon.channel.get(), &NativeChannel::closed);
        addon.closeWriting();
        QTRY_COMPARE(closed.size(), 1);
        QTest::qWait(20);
        QCOMPARE(closed.size(), 1);
    }

    void theEndInsideAMessageSaysSo()
    {
        AddonEnd addon;
        QSignalSpy closed(addon.channel.get(), &NativeChannel::closed);
        QVERIFY(addon.write(AddonEnd::framed(R"({"cut":true})").chopped(3)));
        QTest::qWait(5);
        addon.closeWriting();
        QTRY_COMPARE(closed.size(), 1);
        QVERIFY(closed[0][0].toString().contains("in the middle of a message"_L1));
    }

    void longMessagesGoOutInPiecesThatABrowserTakes()
    {
        AddonEnd addon;
        const QString text = u"äx"_s.repeated(1500000);
        addon.channel->send({{u"text"_s, text}});
        QByteArray joined;
        bool last = false;
        while (!last) {
            QTest::qWait(0);
            const QList<QJsonObject> messages = addon.takeMessages();
            for (const QJsonObject &message : messages) {
                joined += message["piece"_L1].toString().toLatin1();
                last = message["last"_L1].toBool();
            }
        }
        QVERIFY(addon.largestFrame <= NativeChannel::outgoingLimit);
        const QByteArray json = QByteArray::fromBase64(joined, QByteArray::AbortOnBase64DecodingErrors);
        QCOMPARE(QJsonDocument::fromJson(json).object()["text"_L1].toString(), text);
    }

    void aReaderThatGoesAwayEndsTheConnection()
    {
        int in[2];
        int out[2];
        QCOMPARE(pipe2(in, O_CLOEXEC), 0);
        QCOMPARE(pipe2(out, O_CLOEXEC), 0);
        NativeChannel channel(in[0], out[1]);
        QSignalSpy closed(&channel, &NativeChannel::closed);
        std::signal(SIGPIPE, SIG_IGN);
        ::close(out[0]);
        channel.send({{u"lost"_s, true}});
        QTRY_COMPARE(closed.size(), 1);
        ::close(in[1]);
    }
};

QTEST_GUILESS_MAIN(NativeChannelTest)
#include "tst_nativechannel.moc"
