#include "BusValues.h"
#include "Contract.h"

#include <QDBusObjectPath>
#include <QFile>
#include <QJsonObject>
#include <QTest>

using namespace kest;
using namespace Qt::StringLiterals;

class ContractTest : public QObject
{
    Q_OBJECT

private:
    static Contract contract()
    {
        QFile file(qEnvironmentVariable("KEST_SOURCE_DIR") + u"/resources/org.kest.Mail1.xml"_s);
        return Contract(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }

private Q_SLOTS:
    void theInterfacesAreThoseOfTheFile()
    {
        QStringList names;
        const Contract read = contract();
        for (const ContractInterface &interface : read.interfaces())
            names += interface.name;
        QCOMPARE(names, QStringList({u"Application"_s, u"Message"_s, u"OutgoingMessage"_s}));
    }

    void aMethodHasItsSignaturesAndNames()
    {
        const Contract read = contract();
        const ContractMember *method = read.forPath(u"/org/kest/Mail1"_s)->method(u"NewMessage"_s);
        QVERIFY(method);
        QCOMPARE(method->inputSignature, u"sssta(sh)"_s);
        QCOMPARE(method->outputSignature, u"o"_s);
        QCOMPARE(method->inputNames.last(), u"attachments"_s);
    }

    void aPropertyKnowsWhetherItCanBeWritten()
    {
        const Contract read = contract();
        const ContractInterface *interface = read.forPath(u"/org/kest/Mail1/outgoing/7"_s);
        QVERIFY(interface->property(u"Subject"_s)->writable);
        QVERIFY(!interface->property(u"ToRecipients"_s)->writable);
        QVERIFY(!interface->property(u"Send"_s));
    }

    void theXmlOfAnInterfaceIsOneElement()
    {
        const Contract read = contract();
        for (const ContractInterface &interface : read.interfaces()) {
            QVERIFY(interface.xml.startsWith("<interface name=\"org.kest.Mail1."_L1 + interface.name));
            QVERIFY(interface.xml.endsWith("</interface>"_L1));
            QCOMPARE(interface.xml.count("<interface"_L1), 1);
        }
    }

    void noObjectIsElsewhere_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("parent") << u"/org/kest"_s;
        QTest::newRow("branch") << u"/org/kest/Mail1/message"_s;
        QTest::newRow("other") << u"/org/kest/Mail1/draft/1"_s;
        QTest::newRow("longer name") << u"/org/kest/Mail12"_s;
    }

    void noObjectIsElsewhere()
    {
        QFETCH(QString, path);
        QVERIFY(!contract().forPath(path));
    }

    void objectsAreNumbered_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("can");
        QTest::newRow("root") << u"/org/kest/Mail1"_s << true;
        QTest::newRow("message") << u"/org/kest/Mail1/message/7"_s << true;
        QTest::newRow("long number") << u"/org/kest/Mail1/outgoing/123456789012345"_s << true;
        QTest::newRow("longer number") << u"/org/kest/Mail1/outgoing/1234567890123456"_s << false;
        QTest::newRow("no number") << u"/org/kest/Mail1/message/"_s << false;
        QTest::newRow("number below something") << u"/org/kest/Mail1/message/x/1"_s << false;
        QTest::newRow("number elsewhere") << u"/org/kest/Mail1/draft/1"_s << false;
        QTest::newRow("word") << u"/org/kest/Mail1/message/none"_s << false;
        QTest::newRow("other digits") << u"/org/kest/Mail1/message/\u0663"_s << false;
    }

    void objectsAreNumbered()
    {
        QFETCH(QString, path);
        QTEST(Contract::canBeObject(path), "can");
    }

    void brokenXmlHasNoInterfaces()
    {
        QVERIFY(Contract("<node><interface").forPath(u"/org/kest/Mail1"_s) == nullptr);
    }

    void valuesOfTheWrongKindAreRefused_data()
    {
        QTest::addColumn<QString>("signature");
        QTest::addColumn<QJsonValue>("value");
        QTest::newRow("text") << u"s"_s << QJsonValue(3);
        QTest::newRow("boolean") << u"b"_s << QJsonValue(u"true"_s);
        QTest::newRow("path") << u"o"_s << QJsonValue(u"no path"_s);
        QTest::newRow("texts") << u"a(sss)"_s << QJsonValue(QJsonObject());
        QTest::newRow("nothing") << u"ao"_s << QJsonValue(QJsonValue::Null);
        QTest::newRow("unknown type") << u"x"_s << QJsonValue(1);
    }

    void valuesOfTheWrongKindAreRefused()
    {
        QFETCH(QString, signature);
        QFETCH(QJsonValue, value);
        QVERIFY(!fromJson(value, signature).isValid());
    }

    void anIndexBeyondExactNumbersBecomesTheLargestExactOne()
    {
        QList<QDBusUnixFileDescriptor> files;
        const QJsonArray values = toJson({QVariant::fromValue<quint64>(~quint64(0)), u"text"_s, true}, files, 1);
        QCOMPARE(values[0].toInteger(), (qint64(1) << 53) - 1);
        QCOMPARE(values[1].toString(), u"text"_s);
        QCOMPARE(values[2].toBool(), true);
    }
};

QTEST_GUILESS_MAIN(ContractTest)
#include "tst_contract.moc"
