#include "platform/linux/mail/DBusMailTransport.h"
#include "platform/linux/mail/MailErrors.h"

#include <QSignalSpy>
#include <QTest>

using namespace kest;
using namespace Qt::StringLiterals;

/// The transport where there is no session bus.
class TestNoBus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingBusIsSaidSoAtOnceAtEveryCall()
    {
        DBusMailTransport transport;
        QSignalSpy unreachable(&transport, &MailTransport::mailApplicationUnreachable);
        for (int time = 0; time < 2; ++time) {
            const MailReply reply = transport.call({u"/org/kest/Mail1"_s, u"org.kest.Mail1.Application"_s, u"Accounts"_s,
                                                    MailCall::Kind::Method, {}});
            QVERIFY(reply.error);
            QCOMPARE(reply.error->code, int(MailErrorCode::NoBus));
            QVERIFY(reply.error->description.contains(u"session bus"));
        }
        QCOMPARE(unreachable.size(), 2);
        QVERIFY(!transport.isBusy());
    }
};

QTEST_GUILESS_MAIN(TestNoBus)
#include "tst_nobus.moc"
