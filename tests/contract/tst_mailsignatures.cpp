#include "platform/linux/mail/MailSignatures.h"
#include "support/InterfaceDescription.h"

#include <QTest>

using namespace Qt::StringLiterals;

/// The transport's own table against the interface's description.
class TestMailSignatures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyMemberHasTheTypesOfTheDescription()
    {
        for (const kest::MailSignature &each : kest::mailSignatures()) {
            const QString key = QString::fromLatin1(each.interface) + (each.isProperty ? u" property "_s : u" method "_s)
                + QString::fromLatin1(each.member);
            QVERIFY2(kest::test::mailInterface().contains(key), qPrintable(key));
            const auto described = kest::test::mailInterface().value(key);
            QCOMPARE(key + u' ' + QString::fromLatin1(each.in), key + u' ' + described.in);
            QCOMPARE(key + u' ' + QString::fromLatin1(each.out), key + u' ' + described.out);
        }
    }

    void noMemberOfTheDescriptionIsMissing()
    {
        qsizetype described = 0;
        for (const auto &member : kest::test::mailInterface())
            described += member.kind != u"signal";
        QCOMPARE(kest::mailSignatures().size(), described);
    }
};

QTEST_GUILESS_MAIN(TestMailSignatures)
#include "tst_mailsignatures.moc"
