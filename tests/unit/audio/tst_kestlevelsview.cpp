#include "audio/KestLevelsView.h"

#include <QImage>
#include <QSignalSpy>
#include <QTest>

using kest::KestLevelsView;

class TestKestLevelsView : public QObject
{
    Q_OBJECT

private:
    static QImage draw(KestLevelsView &view)
    {
        QImage image(view.size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        view.render(&image);
        return image;
    }

    static int firstUnlit(const QImage &image)
    {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, image.height() / 2) != lit)
                return x;
        }
        return image.width();
    }

    static inline const QColor lit{77, 204, 230};
    static inline const QColor unlit{170, 170, 170};

private Q_SLOTS:
    void fraction_data()
    {
        QTest::addColumn<float>("level");
        QTest::addColumn<double>("fraction");
        QTest::newRow("silence") << -160.0F << 0.0;
        QTest::newRow("quietest") << -70.0F << 0.0;
        QTest::newRow("half") << -35.0F << 0.5;
        QTest::newRow("loudest") << 0.0F << 1.0;
        QTest::newRow("beyond") << 3.0F << 1.0;
        QTest::newRow("between") << -17.5F << 0.75;
        QTest::newRow("computed in double") << -0.1F << (static_cast<double>(-0.1F) + 70.0) / 70.0;
    }

    void fraction()
    {
        QFETCH(float, level);
        KestLevelsView view;
        view.updatePowerLevel(level);
        QTEST(view.powerFraction(), "fraction");
    }

    void isNewAndEmpty()
    {
        const KestLevelsView view;
        QCOMPARE(view.powerFraction(), 0.0);
        QCOMPARE(view.dotCount(), 0U);
        QCOMPARE(view.whiteDotCount(), 0U);
        QCOMPARE(view.dotWidth(), 0.0);
        QCOMPARE(view.dotOffset(), 0.0);
        QVERIFY(view.bezierArray().isEmpty());
    }

    void drawsTwoPlainParts()
    {
        KestLevelsView view;
        view.resize(200, 12);
        view.setPowerFraction(0.25);
        const QImage image = draw(view);
        for (int y = 0; y < image.height(); ++y) {
            QCOMPARE(image.pixelColor(0, y), lit);
            QCOMPARE(image.pixelColor(49, y), lit);
            QCOMPARE(image.pixelColor(50, y), unlit);
            QCOMPARE(image.pixelColor(199, y), unlit);
        }
        QCOMPARE(firstUnlit(image), 50);
    }

    void isAllGreyUntilItIsTold()
    {
        KestLevelsView view;
        view.resize(80, 6);
        const QImage image = draw(view);
        QCOMPARE(image.pixelColor(0, 3), unlit);
        QCOMPARE(image.pixelColor(79, 3), unlit);
    }

    void isAllLitAboveFullScale()
    {
        KestLevelsView view;
        view.resize(80, 6);
        view.updatePowerLevel(3.0F);
        QCOMPARE(firstUnlit(draw(view)), 80);
    }

    void isAllGreyAgainAtSilence()
    {
        KestLevelsView view;
        view.resize(80, 6);
        view.updatePowerLevel(3.0F);
        QCOMPARE(firstUnlit(draw(view)), 80);
        view.updatePowerLevel(-160.0F);
        const QImage image = draw(view);
        for (int x = 0; x < image.width(); ++x)
            QCOMPARE(image.pixelColor(x, 3), unlit);
    }

    // A border within a pixel is neither of the two colours there.
    void drawsTheLevelFractionally()
    {
        KestLevelsView view;
        view.resize(10, 6);
        view.setPowerFraction(0.25);
        const QImage image = draw(view);
        QCOMPARE(image.pixelColor(1, 3), lit);
        QVERIFY(image.pixelColor(2, 3) != lit);
        QVERIFY(image.pixelColor(2, 3) != unlit);
        QCOMPARE(image.pixelColor(3, 3), unlit);
    }

    void everyLevelMarksTheViewForDrawing()
    {
        struct Counting : KestLevelsView {
            int painted = 0;
            void paintEvent(QPaintEvent *event) override
            {
                ++painted;
                KestLevelsView::paintEvent(event);
            }
        } view;
        view.resize(50, 6);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QTRY_VERIFY(view.painted > 0);
        const int before = view.painted;
        view.updatePowerLevel(-160.0F);
        QTRY_VERIFY(view.painted > before);
    }

    void announcesChangesOnly()
    {
        KestLevelsView view;
        QSignalSpy spy(&view, &KestLevelsView::powerFractionChanged);
        view.updatePowerLevel(-35.0F);
        view.updatePowerLevel(-35.0F);
        QCOMPARE(spy.size(), 1);
    }
};

QTEST_MAIN(TestKestLevelsView)
#include "tst_kestlevelsview.moc"
