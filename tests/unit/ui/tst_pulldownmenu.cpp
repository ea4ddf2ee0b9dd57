#include "ui/controls/PullDownMenu.h"

#include "ui/controls/PullDownButton.h"
#include "ui/controls/PullDownItems.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QLatin1Char>
#include <QListView>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using namespace kest;
using namespace Qt::StringLiterals;

/// The menu under a button: how it opens, how it is worked, what it shows.
class TestPullDownMenu : public QObject
{
    Q_OBJECT

    std::unique_ptr<QWidget> m_window;
    PullDownButton *m_button = nullptr;

    PullDownMenu &menu() { return *m_button->menu(); }
    QListView &list() { return *menu().findChild<QListView *>(); }

    void fill(const QStringList &titles, const QString &checked = {})
    {
        QList<PullDownItem> items;
        for (const QString &title : titles)
            items.append({title, title == checked});
        menu().setItems(items);
    }

    void fillWith(int count)
    {
        QStringList titles;
        for (int at = 0; at < count; ++at)
            titles.append(u"message %1"_s.arg(at, 5, 10, QLatin1Char('0')));
        fill(titles);
    }

    void open()
    {
        m_button->click();
        QVERIFY(QTest::qWaitForWindowExposed(&menu()));
    }

    QString current() { return list().currentIndex().data().toString(); }
    void press(Qt::Key key) { QTest::keyClick(&list(), key); }

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(300, 200);
        m_button = new PullDownButton(m_window.get());
        m_button->setAccessibleName(u"Optional Message"_s);
        m_button->setGeometry(20, 20, 60, 30);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }
    void cleanup() { m_window.reset(); }

    void itsFirstItemStandsOnTheFaceOnly()
    {
        fill({u"a.txt"_s});
        menu().setImage(QIcon());
        QCOMPARE(list().model()->rowCount(), 1);
        QCOMPARE(list().model()->index(0, 0).data().toString(), u"a.txt"_s);
    }

    void withoutAnItemItDoesNotOpen()
    {
        QSignalSpy needed(m_button, &PullDownButton::menuNeedsUpdate);
        m_button->click();
        QCOMPARE(needed.size(), 1);
        QVERIFY(!menu().isVisible());
    }

    void isFilledAtEveryOpening()
    {
        int openings = 0;
        connect(m_button, &PullDownButton::menuNeedsUpdate, this, [&] { fill({u"opening %1"_s.arg(++openings)}); });
        open();
        menu().close();
        open();
        QCOMPARE(menu().items().constFirst().title, u"opening 2"_s);
    }

    void openingMovesToTheCheckedItem()
    {
        fill({u"a"_s, u"b"_s, u"c"_s}, u"b"_s);
        open();
        QCOMPARE(current(), u"b"_s);
        QCOMPARE(list().model()->index(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QCOMPARE(list().model()->index(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    }

    void theArrowsAndReturnChoose_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("return") << Qt::Key_Return;
        QTest::newRow("enter") << Qt::Key_Enter;
        QTest::newRow("space") << Qt::Key_Space;
    }
    void theArrowsAndReturnChoose()
    {
        QFETCH(Qt::Key, key);
        fill({u"a"_s, u"b"_s, u"c"_s});
        QSignalSpy triggered(&menu(), &PullDownMenu::triggered);
        open();
        press(Qt::Key_Down);
        press(Qt::Key_Down);
        press(key);
        QCOMPARE(triggered.size(), 1);
        QCOMPARE(triggered.constFirst().constFirst().toString(), u"b"_s);
        QVERIFY(!menu().isVisible());
    }

    void aClickChooses()
    {
        fill({u"a"_s, u"b"_s});
        QSignalSpy triggered(&menu(), &PullDownMenu::triggered);
        open();
        const QPoint second = list().visualRect(list().model()->index(1, 0)).center();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, second);
        QCOMPARE(triggered.value(0).value(0).toString(), u"b"_s);
        QVERIFY(!menu().isVisible());
    }

    void theItemUnderTheMovingPointerIsTheCurrentOne()
    {
        fill({u"a"_s, u"b"_s});
        open();
        QTest::mouseMove(list().viewport(), list().visualRect(list().model()->index(1, 0)).center());
        QTRY_COMPARE(current(), u"b"_s);
    }

    void aListScrolledByKeysStaysWithTheKeys()
    {
        fillWith(100);
        open();
        QTest::mouseMove(list().viewport(), list().visualRect(list().model()->index(3, 0)).center());
        QTRY_COMPARE(current(), u"message 00003"_s);
        press(Qt::Key_End);
        QCoreApplication::processEvents();
        QCOMPARE(current(), u"message 00099"_s);
    }

    void escapeClosesAndChoosesNothing()
    {
        fill({u"a"_s});
        QSignalSpy triggered(&menu(), &PullDownMenu::triggered);
        open();
        press(Qt::Key_Down);
        press(Qt::Key_Escape);
        QVERIFY(!menu().isVisible());
        QVERIFY(triggered.isEmpty());
    }

    void whatCannotBeChosenStaysOpenAndSilent()
    {
        menu().setItems({{u"No folder"_s, false, false}});
        QSignalSpy triggered(&menu(), &PullDownMenu::triggered);
        open();
        press(Qt::Key_Down);
        press(Qt::Key_Return);
        const QPoint first = list().visualRect(list().model()->index(0, 0)).center();
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, first);
        QVERIFY(triggered.isEmpty());
        QVERIFY(menu().isVisible());
    }

    void tenThousandItemsStayOnTheScreenAndCanBeReached()
    {
        fillWith(10'000);
        QSignalSpy triggered(&menu(), &PullDownMenu::triggered);
        open();
        QVERIFY(m_window->screen()->availableGeometry().contains(menu().frameGeometry()));
        press(Qt::Key_End);
        QCOMPARE(current(), u"message 09999"_s);
        QVERIFY(list().viewport()->rect().contains(list().visualRect(list().currentIndex())));
        press(Qt::Key_PageUp);
        QVERIFY(current() < u"message 09999"_s);
        press(Qt::Key_Return);
        QCOMPARE(triggered.size(), 1);
    }

    void theFirstLettersFindAnItem()
    {
        fill({u"apple.txt"_s, u"banana.txt"_s, u"blueberry.txt"_s});
        open();
        QTest::keyClicks(&list(), u"bl"_s);
        QCOMPARE(current(), u"blueberry.txt"_s);
    }

    void atTheBottomOfTheScreenItOpensAboveTheButton()
    {
        fillWith(30);
        const QRect screen = m_window->screen()->availableGeometry();
        m_window->move(screen.left() + 50, screen.bottom() - 80);
        QTRY_VERIFY(m_button->mapToGlobal(QPoint()).y() > screen.center().y());
        open();
        QVERIFY(menu().geometry().bottom() < m_button->mapToGlobal(QPoint()).y());
        QVERIFY(screen.contains(menu().geometry()));
    }

    void aTitleStaysOnOneLine_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("shown");
        QTest::newRow("plain") << u"Tom & Jerry/1.txt"_s << u"Tom & Jerry/1.txt"_s;
        QTest::newRow("line feed") << u"a\nb"_s << u"a\u240ab"_s;
        QTest::newRow("tab") << u"a\tCtrl+Q"_s << u"a\u2409Ctrl+Q"_s;
        QTest::newRow("delete") << u"a\x7f"_s << u"a\u2421"_s;
        QTest::newRow("line separator") << u"a\u2028b"_s << u"a\u2424b"_s;
        QTest::newRow("right-to-left override") << u"a\u202etxt.exe"_s << u"a\ufffdtxt.exe"_s;
        QTest::newRow("isolate") << u"\u2067a"_s << u"\ufffda"_s;
        QTest::newRow("a byte that is no UTF-8") << u"caf"_s + QChar(0xdce9) << u"caf\ufffd"_s;
        QTest::newRow("emoji") << u"\U0001f399\u200d"_s << u"\U0001f399\u200d"_s;
    }
    void aTitleStaysOnOneLine()
    {
        QFETCH(QString, title);
        fill({title});
        QTEST(list().model()->index(0, 0).data().toString(), "shown");
        QCOMPARE(menu().items().constFirst().title, title);
    }

    void aTitleOfUsualLengthIsShownWhole_data()
    {
        QTest::addColumn<QString>("title");
        QTest::newRow("short") << u"a"_s;
        QTest::newRow("usual") << u"Answer to a question 00001.txt"_s;
    }
    void aTitleOfUsualLengthIsShownWhole()
    {
        QFETCH(QString, title);
        fill({title});
        open();
        const int width = list().visualRect(list().model()->index(0, 0)).width();
        QCOMPARE(PullDownItemDelegate::fitted(list(), title, width), title);
    }

    void aLongTitleIsShortenedAndReadWholeInItsToolTip()
    {
        const QString title = QString(251, u'n') + u".m4a"_s;
        fill({title});
        open();
        QVERIFY(menu().width() < 600);
        QCOMPARE(list().model()->index(0, 0).data(Qt::ToolTipRole).toString(), title);
    }

    void assistiveTechnologyReadsItsItems()
    {
        fill({u"a.txt"_s, u"b.txt"_s}, u"b.txt"_s);
        open();
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&list());
        QCOMPARE(accessible->text(QAccessible::Name), u"Optional Message"_s);
        QCOMPARE(accessible->childCount(), 2);
        QCOMPARE(accessible->child(1)->text(QAccessible::Name), u"b.txt"_s);
        QVERIFY(accessible->child(1)->state().checked);
        QVERIFY(!accessible->child(0)->state().checked);
    }

    void assistiveTechnologyFindsTheMenuUnderItsButton()
    {
        fill({u"a.txt"_s});
        QAccessibleInterface *button = QAccessible::queryAccessibleInterface(m_button);
        QVERIFY(button->state().hasPopup);
        QVERIFY(button->child(0)->state().invisible);
        button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QVERIFY(QTest::qWaitForWindowExposed(&menu()));
        QVERIFY(button->state().expanded);
        QCOMPARE(button->child(0)->object(), &menu());
        QCOMPARE(button->child(0)->child(0)->object(), &list());
        QCOMPARE(button->child(0)->parent()->object(), m_button);
    }
};

QTEST_MAIN(TestPullDownMenu)
#include "tst_pulldownmenu.moc"
