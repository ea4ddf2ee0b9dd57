#include "ui/WindowFrame.h"

#include <QTest>

using namespace kest;

namespace {

constexpr WindowHeights heights{.minHeight = 141.0, .expandedHeight = 321.0};

constexpr WindowFrame frameAt(double y, double height)
{
    return {.x = 40.0, .y = y, .width = 460.0, .height = height};
}

} // namespace

class TestWindowFrame : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensExpandedWhereTheLayoutPutsIt()
    {
        QCOMPARE(initialFrame(frameAt(200.0, 321.0), true, heights), frameAt(200.0, 321.0));
    }

    void opensCollapsedWithTheSameTopEdge()
    {
        QCOMPARE(initialFrame(frameAt(200.0, 321.0), false, heights), frameAt(380.0, 141.0));
    }

    void standsOnTheScreensEdge_data()
    {
        QTest::addColumn<double>("y");
        QTest::addColumn<double>("moved");
        QTest::newRow("half a point above") << 0.5 << 0.0;
        QTest::newRow("just below one") << 0.999 << 0.0;
        QTest::newRow("one stays") << 1.0 << 1.0;
        QTest::newRow("on the edge") << 0.0 << 0.0;
        QTest::newRow("below") << -75.0 << 0.0;
    }

    void standsOnTheScreensEdge()
    {
        QFETCH(double, y);
        QFETCH(double, moved);
        QCOMPARE(initialFrame(frameAt(y, 321.0), true, heights).y, moved);
        QCOMPARE(initialFrame(frameAt(y - 180.0, 321.0), false, heights).y, moved);
        QCOMPARE(toggledFrame(frameAt(y + 180.0, 141.0), heights).frame.y, moved);
    }

    void growsAtTheBottomEdge()
    {
        const ToggledFrame toggled = toggledFrame(frameAt(400.0, 141.0), heights);
        QVERIFY(toggled.expanded);
        QCOMPARE(toggled.frame, frameAt(220.0, 321.0));
    }

    void shrinksAtTheBottomEdge()
    {
        const ToggledFrame toggled = toggledFrame(frameAt(220.0, 321.0), heights);
        QVERIFY(!toggled.expanded);
        QCOMPARE(toggled.frame, frameAt(400.0, 141.0));
    }

    void twoTogglesLeadBack()
    {
        const WindowFrame frame = frameAt(400.0, 141.0);
        QCOMPARE(toggledFrame(toggledFrame(frame, heights).frame, heights).frame, frame);
    }

    // At the bottom of the screen it grows upward instead, and the top edge has moved afterwards.
    void growsUpwardAtTheBottomOfTheScreen()
    {
        const WindowFrame expanded = toggledFrame(frameAt(100.0, 141.0), heights).frame;
        QCOMPARE(expanded, frameAt(0.0, 321.0));
        QCOMPARE(toggledFrame(expanded, heights).frame, frameAt(180.0, 141.0));
    }

    void lessThanTheLeastHeightCountsAsCollapsed()
    {
        QVERIFY(toggledFrame(frameAt(400.0, 100.0), heights).expanded);
        QVERIFY(!toggledFrame(frameAt(400.0, 141.5), heights).expanded);
    }

    void measuresUpwardFromTheUsableArea()
    {
        const QRect screen(100, 50, 1000, 700); // its bottom edge lies at 750
        const WindowFrame frame = frameFromGeometry(QRect(140, 409, 460, 141), screen);
        QCOMPARE(frame, frameAt(200.0, 141.0));
        QCOMPARE(geometryFromFrame(frame, screen), QRect(140, 409, 460, 141));
        QCOMPARE(geometryFromFrame(frameAt(0.0, 321.0), screen).bottom() + 1, 750);
    }
};

QTEST_GUILESS_MAIN(TestWindowFrame)
#include "tst_windowframe.moc"
