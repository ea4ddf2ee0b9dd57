#include "app/SettingsTable.h"
#include "gui/WindowHouse.h"
#include "ui/controls/ControlButton.h"

#include <QScreen>
#include <QTest>

using namespace kest;
using namespace kest::test;

namespace {

const QString showMore = QStringLiteral("Show More");
const QString showLess = QStringLiteral("Show Less");

} // namespace

/// The window's frame: small or expanded, and where on the screen.
class TestMainWindowFrame : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;

    MainWindowController &controller() { return *m_house->controller; }
    QWidget &window() { return *controller().window(); }
    bool storedExpanded() { return m_house->settings->boolForKey(SettingsKeys::bWindowExpanded); }
    int bottomOfScreen() { return window().screen()->availableGeometry().bottom() + 1; }

    void compareTriangle(const QString &image, char16_t key)
    {
        const ControlButton *triangle = controller().disclosureTriangle();
        QCOMPARE(triangle->image(), image);
        QCOMPARE(triangle->alternateImage(), image + QStringLiteral("-alt"));
        QCOMPARE(triangle->property("keyEquivalent").toString(), QString(QChar(key)));
    }

private Q_SLOTS:
    void init() { m_house = std::make_unique<WindowHouse>(); }
    void cleanup() { m_house.reset(); }

    void opensCollapsed()
    {
        m_house->openAndShow();
        QCOMPARE(window().height(), 141);
        QVERIFY(m_house->find(showMore)->isVisible());
        compareTriangle(QStringLiteral("disclosure-closed"), 0xF703);
        QVERIFY(!window().findChild<QWidget *>(QStringLiteral("detailPanel"))->isVisible());
    }

    void opensExpandedWhenItWasLeftSo()
    {
        m_house->settings->setBool(true, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
        QCOMPARE(window().height(), 321);
        QVERIFY(m_house->find(showLess)->isVisible());
        compareTriangle(QStringLiteral("disclosure-opened"), 0xF702);
    }

    // In the layout the window is 321 high and stands 180 from the left and 340 from the bottom.
    void opensWithItsTopEdgeWhereTheLayoutPutsIt_data()
    {
        QTest::addColumn<bool>("expanded");
        QTest::newRow("collapsed") << false;
        QTest::newRow("expanded") << true;
    }

    void opensWithItsTopEdgeWhereTheLayoutPutsIt()
    {
        QFETCH(bool, expanded);
        m_house->settings->setBool(expanded, SettingsKeys::bWindowExpanded);
        m_house->openAndShow();
        const int left = window().screen()->availableGeometry().left();
        QTRY_COMPARE(window().geometry().topLeft(), QPoint(left + 180, bottomOfScreen() - 340 - 321));
    }

    // As on a screen that is lower than the layout's place wants.
    void doesNotReachBeyondTheScreensTopEdge()
    {
        m_house->openAndShow();
        window().move(window().x(), -window().height());
        m_house->click(showMore);
        QTRY_COMPARE(window().height(), 321);
        QVERIFY(window().geometry().top() > window().screen()->availableGeometry().top());
    }

    void growsAndShrinksAtItsBottomEdge()
    {
        m_house->openAndShow();
        const QRect collapsed = window().geometry();
        m_house->click(showMore);
        QVERIFY(storedExpanded());
        compareTriangle(QStringLiteral("disclosure-opened"), 0xF702);
        QTRY_COMPARE(window().height(), 321);
        QCOMPARE(window().geometry().topLeft(), collapsed.topLeft());
        m_house->click(showLess);
        QVERIFY(!storedExpanded());
        compareTriangle(QStringLiteral("disclosure-closed"), 0xF703);
        QTRY_COMPARE(window().geometry(), collapsed);
        QTRY_VERIFY(!window().findChild<QWidget *>(QStringLiteral("detailPanel"))->isVisible());
    }

    // The slide has not ended when the second click comes.
    void twoQuickTogglesLeadBack()
    {
        m_house->openAndShow();
        const QRect collapsed = window().geometry();
        controller().windowToggleExpanded();
        controller().windowToggleExpanded();
        QVERIFY(!storedExpanded());
        QTRY_VERIFY(!window().findChild<QWidget *>(QStringLiteral("detailPanel"))->isVisible()); // it has arrived
        QCOMPARE(window().geometry(), collapsed);
    }

    void growsUpwardAtTheBottomOfTheScreen()
    {
        m_house->openAndShow();
        window().setGeometry(200, bottomOfScreen() - 141 - 60, window().width(), 141);
        QTRY_COMPARE(window().geometry().bottom() + 1, bottomOfScreen() - 60);
        m_house->click(showMore);
        QTRY_COMPARE(window().height(), 321);
        QTRY_COMPARE(window().geometry().bottom() + 1, bottomOfScreen());
    }

    void arrowKeysExpandAndCollapse()
    {
        m_house->openAndShow();
        QTest::keyClick(&window(), Qt::Key_Left);
        QVERIFY(!storedExpanded());
        QTest::keyClick(&window(), Qt::Key_Right);
        QVERIFY(storedExpanded());
        QTest::keyClick(&window(), Qt::Key_Right);
        QVERIFY(storedExpanded());
        QTest::keyClick(&window(), Qt::Key_Left);
        QVERIFY(!storedExpanded());
    }

    void comesBackWithoutTheFocusAtItsPlace()
    {
        m_house->openAndShow();
        window().move(321, 234);
        QTRY_COMPARE(window().pos(), QPoint(321, 234));
        QWidget other;
        other.setGeometry(900, 500, 200, 100);
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        controller().orderOut();
        QVERIFY(!window().isVisible());
        controller().orderFront();
        QVERIFY(QTest::qWaitForWindowExposed(&window()));
        QTRY_COMPARE(window().pos(), QPoint(321, 234));
        QCOMPARE(QApplication::activeWindow(), &other);
    }
};

QTEST_MAIN(TestMainWindowFrame)
#include "tst_mainwindowframe.moc"
