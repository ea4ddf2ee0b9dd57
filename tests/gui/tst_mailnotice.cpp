#include "gui/WindowHouse.h"

#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

/// What the window says when the mail application cannot be reached.
class TestMailNotice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
    }

    void unreachableMailApplicationIsSaidInTheQuietPlaceUntilTheNextCall()
    {
        const QString before = m_house->notice();
        Q_EMIT m_house->mail.mailApplicationUnreachable({u"d"_s, 1, u"Install the add-on."_s, {}});
        QCOMPARE(m_house->notice(), u"The mail application cannot be reached"_s);
        m_house->mail.call({u"/org/kest/Mail1"_s, u"org.kest.Mail1.Application"_s, u"Accounts"_s, MailCall::Kind::Method, {}});
        QCOMPARE(m_house->notice(), before);
    }

private:
    std::unique_ptr<WindowHouse> m_house;
};

QTEST_MAIN(TestMailNotice)
#include "tst_mailnotice.moc"
