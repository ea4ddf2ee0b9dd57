#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QLabel>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

/// The sheet's choice of the account to send from.
class TestPreferencesAccount : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    QComboBox *popup() { return m_house->find<QComboBox>(u"Sending Account"_s); }
    QVariant stored() { return m_house->settings->objectForKey(SettingsKeys::emailAccountToUse); }
    QString hint() { return m_house->controller->preferences()->window()->findChild<QLabel *>(u"accountHint"_s)->text(); }
    bool offersToList() { return m_house->find(u"List Accounts"_s)->isVisible(); }

    QStringList titles()
    {
        QStringList texts;
        for (int i = 0; i < popup()->count(); ++i)
            texts.append(popup()->itemText(i));
        return texts;
    }

    void accounts(const QStringList &names)
    {
        QVariantList list;
        for (const QString &name : names)
            list.append(QStringList{u"id-"_s + name, name, name + u" <a@example.org>"_s});
        m_house->mail.answers[u"Accounts"_s] = list;
    }

    void store(const QString &account) { m_house->settings->setObject(account, SettingsKeys::emailAccountToUse); }

    static QString ownScript()
    {
        return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/kest/ASMail.mjs"_s;
    }

private Q_SLOTS:
    void init()
    {
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
        accounts({u"A"_s, u"B"_s});
    }

    void cleanup()
    {
        m_house.reset();
        QFile::remove(ownScript());
    }

    void theStoredAccountIsSelected()
    {
        store(u"B"_s);
        m_house->openPreferences();
        QCOMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(popup()->currentText(), u"B"_s);
        QVERIFY(hint().isEmpty());
        QVERIFY(!offersToList());
    }

    void theFirstOfEqualTitlesIsSelected()
    {
        accounts({u"A"_s, u"B"_s, u"B"_s});
        store(u"B"_s);
        m_house->openPreferences();
        QCOMPARE(popup()->currentIndex(), 1);
    }

    void titlesDifferByCase()
    {
        accounts({u"work"_s, u"Work"_s});
        store(u"Work"_s);
        m_house->openPreferences();
        QCOMPARE(popup()->currentIndex(), 1);
    }

    void nothingIsSelectedOrStoredUntilThePersonPicks()
    {
        QSignalSpy written(m_house->settings.get(), &UserDefaults::valueChanged);
        m_house->openPreferences();
        QCOMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(popup()->currentIndex(), -1);
        QCOMPARE(popup()->placeholderText(), u"Choose an account"_s);
        QVERIFY(hint().contains(u"default account"));
        m_house->controller->preferences()->closePrefsSheet();
        QVERIFY(written.isEmpty());
        QCOMPARE(stored().toString(), noAccountChosen);
    }

    void anAccountThatIsNotListedIsNamedAndKept()
    {
        store(u"Old"_s);
        m_house->openPreferences();
        QCOMPARE(popup()->currentIndex(), -1);
        QCOMPARE(popup()->currentText(), QString());
        QVERIFY(hint().contains(u"“Old”"));
        QCOMPARE(stored().toString(), u"Old"_s);
    }

    void pickingStoresAtOnce()
    {
        m_house->openPreferences();
        QTest::keyClick(popup(), Qt::Key_Down);
        QCOMPARE(stored().toString(), u"A"_s);
        QTest::keyClick(popup(), Qt::Key_Down);
        QCOMPARE(stored().toString(), u"B"_s);
        QVERIFY(hint().isEmpty());
    }

    void withoutAListThereIsTheOneItem()
    {
        m_house->mail.answers[u"Accounts"_s] = QVariantList();
        m_house->openPreferences();
        QCOMPARE(titles(), QStringList{noAccountChosen});
        QVERIFY(offersToList());
        popup()->showPopup();
        QTest::keyClick(popup()->view(), Qt::Key_Return);
        QCOMPARE(stored().toString(), noAccountChosen);
    }

    void withoutAListAStoredAccountStaysOnShow()
    {
        store(u"B"_s);
        m_house->mail.hindrance = Error{u"x"_s, 1, u"No mail application is connected."_s, {}};
        m_house->openPreferences();
        QCOMPARE(titles(), QStringList{noAccountChosen});
        QCOMPARE(popup()->currentIndex(), -1);
        QCOMPARE(popup()->placeholderText(), u"B"_s);
        QCOMPARE(hint(), u"No mail application is connected."_s);
        QCOMPARE(stored().toString(), u"B"_s);
    }

    void anEmptyListLeavesThePopUpEmpty()
    {
        QVERIFY(QDir().mkpath(QFileInfo(ownScript()).path()));
        QFile script(ownScript());
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("export function retrieveEmailAccounts() { return [] }\n");
        script.close();
        QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        m_house->openPreferences();
        QCOMPARE(popup()->count(), 0);
        QVERIFY(!hint().isEmpty());
        QVERIFY(m_house->alerts.shown.isEmpty());
        QCOMPARE(stored().toString(), noAccountChosen);
    }

    void theListComesFromTheScriptAlsoWhenMessagesDoNot()
    {
        m_house->settings->setBool(false, SettingsKeys::useASClass);
        m_house->openPreferences();
        QCOMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
    }

    void openingStartsNoMailApplication()
    {
        m_house->openPreferences();
        QCOMPARE(m_house->mail.inquiries, QList{MailTransport::Starting::Never});
    }

    void theSheetIsThereBeforeTheAnswer()
    {
        m_house->mail.holdInquiries = true;
        m_house->openPreferences();
        QCOMPARE(hint(), u"Asking your mail application…"_s);
        QVERIFY(m_house->mail.calls.isEmpty());
        QTest::keyClicks(m_house->find(u"Subject"_s), u"x"_s);
        m_house->mail.held.takeFirst()(std::nullopt);
        QCOMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
    }

    void thePersonMayAskForTheList()
    {
        m_house->mail.hindrance = Error{u"x"_s, 1, u"No mail application is connected."_s, {}};
        m_house->openPreferences();
        QVERIFY(offersToList());
        m_house->mail.hindrance.reset();
        m_house->click(u"List Accounts"_s);
        QCOMPARE(m_house->mail.inquiries.last(), MailTransport::Starting::WhereNone);
        QCOMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
        QVERIFY(!offersToList());
    }

    void aMailApplicationThatAppearsIsAsked()
    {
        m_house->mail.hindrance = Error{u"x"_s, 1, u"No mail application is connected."_s, {}};
        m_house->openPreferences();
        m_house->mail.hindrance.reset();
        Q_EMIT m_house->mail.mailApplicationAppeared(u"Thunderbird"_s);
        QCOMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(m_house->mail.inquiries.last(), MailTransport::Starting::Never);
    }

    void theListIsReadOnceARun()
    {
        m_house->openPreferences();
        m_house->controller->preferences()->closePrefsSheet();
        accounts({u"A"_s, u"B"_s, u"C"_s});
        m_house->openPreferences();
        Q_EMIT m_house->mail.mailApplicationAppeared(u"Thunderbird"_s);
        QCOMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
    }

    void theListWaitsForACallThatIsUnderWay()
    {
        m_house->mail.holdInquiries = true;
        m_house->openPreferences();
        m_house->mail.setBusy(true);
        m_house->mail.held.takeFirst()(std::nullopt);
        QVERIFY(m_house->mail.calls.isEmpty());
        m_house->mail.setBusy(false);
        QTRY_COMPARE(titles(), (QStringList{u"A"_s, u"B"_s}));
    }
};

QTEST_MAIN(TestPreferencesAccount)
#include "tst_preferencesaccount.moc"
