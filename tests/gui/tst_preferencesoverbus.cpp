#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "platform/linux/mail/DBusMailTransport.h"
#include "support/FakeMail.h"

#include <QComboBox>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

/// The sheet's list of accounts over a real bus from another process.
class TestPreferencesOverBus : public QObject
{
    Q_OBJECT

private:
    FakeMail m_fake;
    std::unique_ptr<DBusMailTransport> m_mail;
    std::unique_ptr<WindowHouse> m_house;

    QComboBox *popup() { return m_house->find<QComboBox>(u"Sending Account"_s); }
    QString hint() { return m_house->controller->preferences()->window()->findChild<QLabel *>(u"accountHint"_s)->text(); }

    QStringList titles()
    {
        QStringList texts;
        for (int i = 0; i < popup()->count(); ++i)
            texts.append(popup()->itemText(i));
        return texts;
    }

    void startMail()
    {
        m_fake.start();
        m_fake.configure({{u"accounts"_s, QJsonArray{QJsonArray{u"1"_s, u"Work"_s, u"Me <me@work.test>"_s},
                                                     QJsonArray{u"2"_s, u"Home"_s, u"Me <me@home.test>"_s}}}});
    }

private Q_SLOTS:
    void init()
    {
        m_mail = std::make_unique<DBusMailTransport>(
            DBusMailTransport::Limits{.answer = 20s, .start = 5s, .startAgain = 1s});
        m_house = std::make_unique<WindowHouse>();
        m_house->otherMail = m_mail.get();
        m_house->openAndShow();
    }

    void cleanup()
    {
        m_house.reset();
        m_mail.reset();
        m_fake.stop();
    }

    void theMailApplicationsAccountsAreListed()
    {
        startMail();
        m_house->openPreferences();
        QTRY_COMPARE_WITH_TIMEOUT(titles(), (QStringList{u"Work"_s, u"Home"_s}), 20'000);
        QCOMPARE(popup()->currentIndex(), -1);
    }

    void aMailApplicationThatComesLaterIsAskedThen()
    {
        m_house->openPreferences();
        QTRY_COMPARE_WITH_TIMEOUT(hint(), u"No mail application is connected."_s, 20'000);
        QCOMPARE(titles(), QStringList{noAccountChosen});
        m_fake.start(); // asked as soon as it is there, so it has its own account
        QTRY_COMPARE_WITH_TIMEOUT(titles(), QStringList{u"Home"_s}, 20'000);
    }

    void aMailApplicationThatHangsDoesNotHoldTheSheet()
    {
        startMail();
        m_fake.freeze();
        m_house->openPreferences();
        QTest::keyClicks(m_house->find(u"Subject"_s), u"!"_s);
        QVERIFY(m_house->settings->objectForKey(SettingsKeys::tNewMessageSubject).toString().endsWith(u'!'));
        QVERIFY(!m_mail->isBusy());
        m_fake.thaw();
        QTRY_COMPARE_WITH_TIMEOUT(titles(), (QStringList{u"Work"_s, u"Home"_s}), 20'000);
    }

    void aSheetThatGoesBeforeTheAnswerIsNotAskedFor()
    {
        startMail();
        m_fake.freeze();
        m_house->openPreferences();
        m_house.reset();
        m_fake.thaw();
        QTRY_COMPARE_WITH_TIMEOUT(m_fake.log(), QStringList{u"Application.Accounts"_s}, 20'000);
        QVERIFY(!m_mail->isBusy());
    }
};

QTEST_MAIN(TestPreferencesOverBus)
#include "tst_preferencesoverbus.moc"
