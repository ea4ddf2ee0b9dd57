#include "ui/Appearance.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/Icons.h"
#include "ui/controls/MeterFrame.h"
#include "ui/controls/PullDownButton.h"
#include "ui/controls/PopUpButton.h"
#include "ui/controls/ReadoutField.h"

#include <QAccessible>
#include <QPainter>
#include <QTest>
#include <QVBoxLayout>

using namespace kest;

class TestControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyIconCanBeDrawn_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"attach", "Tick", "pause", "pause-alt", "resume", "resume-alt", "stop", "record",
                                 "microphone", "disclosure-closed", "disclosure-closed-alt", "disclosure-opened",
                                 "disclosure-opened-alt", "mail", "reply", "reply-all", "folder", "help", "chevron",
                                 "preferences", "notice", "org.kest.Kest"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void everyIconCanBeDrawn()
    {
        QFETCH(QString, name);
        const QIcon icon = iconNamed(name);
        QVERIFY(!icon.isNull());
        QCOMPARE(icon.name(), name);
        const QImage drawn = icon.pixmap(QSize(40, 40)).toImage();
        bool ink = false;
        for (int y = 0; y < drawn.height() && !ink; ++y) {
            for (int x = 0; x < drawn.width() && !ink; ++x)
                ink = drawn.pixelColor(x, y).alpha() > 128;
        }
        QVERIFY(ink);
    }

    void anUnknownIconIsEmpty() { QVERIFY(iconNamed(QStringLiteral("nothing")).isNull()); }

    void anIconTakesTheColour()
    {
        QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        paintIconNamed(painter, QRectF(0, 0, 40, 40), QStringLiteral("stop"), QColor(10, 200, 30));
        painter.end();
        QCOMPARE(image.pixelColor(20, 20), QColor(10, 200, 30));
    }

    void aMnemonicTakesNoRoomAndClicks()
    {
        ControlButton plain;
        plain.setText(QStringLiteral("Close"));
        ControlButton button;
        button.setText(QStringLiteral("&Close"));
        QCOMPARE(button.sizeHint(), plain.sizeHint());
        QCOMPARE(button.shortcut(), QKeySequence(Qt::ALT | Qt::Key_C));
    }

    void arrowsTurnWithTheDirectionOfReading_data()
    {
        QTest::addColumn<QString>("image");
        QTest::addColumn<bool>("turns");
        QTest::newRow("reply") << QStringLiteral("reply") << true;
        QTest::newRow("reply all") << QStringLiteral("reply-all") << true;
        QTest::newRow("show more") << QStringLiteral("disclosure-closed") << true;
        QTest::newRow("undo") << QStringLiteral("undo") << true;
        QTest::newRow("play") << QStringLiteral("resume") << false;
    }

    void arrowsTurnWithTheDirectionOfReading()
    {
        QFETCH(QString, image);
        const auto picture = [&image](Qt::LayoutDirection direction) {
            ControlButton button;
            button.setLayoutDirection(direction);
            button.setImage(image);
            button.resize(38, 38);
            return button.grab().toImage();
        };
        QTEST(picture(Qt::RightToLeft) != picture(Qt::LeftToRight), "turns");
    }

    /// How far the ink of a short text is from the side where reading begins.
    static int gapBeforeText(Qt::LayoutDirection direction)
    {
        PopUpButton button;
        button.setLayoutDirection(direction);
        button.resize(300, 30);
        const QImage bare = button.grab().toImage();
        button.addItem(QStringLiteral("I"));
        const QImage shown = button.grab().toImage();
        for (int gap = 0; gap < 300; ++gap) {
            const int x = direction == Qt::LeftToRight ? gap : 299 - gap;
            for (int y = 0; y < 30; ++y) {
                if (shown.pixel(x, y) != bare.pixel(x, y))
                    return gap;
            }
        }
        return 300;
    }

    void theTextOfAPopUpStandsWhereReadingBegins()
    {
        for (const Qt::LayoutDirection program : {Qt::RightToLeft, Qt::LeftToRight}) {
            QGuiApplication::setLayoutDirection(program);
            const int left = gapBeforeText(Qt::LeftToRight);
            const int right = gapBeforeText(Qt::RightToLeft);
            QGuiApplication::setLayoutDirection(Qt::LayoutDirectionAuto);
            QVERIFY2(left < 20 && right < 20, qPrintable(QStringLiteral("%1, %2").arg(left).arg(right)));
        }
    }

    void theTooltipShowsTheKeys()
    {
        ControlButton button;
        button.setHint(QStringLiteral("Record a message"));
        QCOMPARE(button.toolTip(), QStringLiteral("Record a message"));
        button.setKeys(QStringLiteral("Ctrl+R"));
        QCOMPARE(button.toolTip(), QStringLiteral("Record a message (Ctrl+R)"));
    }

    void aRunningTimeKeepsItsPlaces()
    {
        ReadoutField field;
        field.setTabular(true);
        field.setText(QStringLiteral("00:11"));
        const QSize ones = field.sizeHint();
        field.setText(QStringLiteral("00:88"));
        QCOMPARE(field.sizeHint(), ones);
        field.setText(QStringLiteral("100:00"));
        QVERIFY(field.sizeHint().width() > ones.width());
    }

    void aReadoutsTextCanBeReadBesideItsName()
    {
        ReadoutField field;
        field.setAccessibleName(QStringLiteral("Recording Time"));
        field.setText(QStringLiteral("00:07"));
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&field);
        QVERIFY(accessible);
        QCOMPARE(accessible->text(QAccessible::Name), QStringLiteral("Recording Time"));
        QCOMPARE(accessible->text(QAccessible::Value), QStringLiteral("00:07"));
        QVERIFY(accessible->textInterface());
        QCOMPARE(accessible->textInterface()->text(0, 5), QStringLiteral("00:07"));
        QVERIFY(accessible->state().readOnly);
    }

    void buttonsAreAsLargeAsDrawn()
    {
        ControlButton button;
        button.setText(QStringLiteral("Reply"));
        PullDownButton pullDown;
        QCOMPARE(button.sizeHint().height(), 32);
        QCOMPARE(pullDown.sizeHint().height(), button.sizeHint().height());
        button.setKind(ControlButton::Kind::Round);
        QCOMPARE(button.sizeHint(), QSize(38, 38));
        button.setKind(ControlButton::Kind::Ghost);
        QCOMPARE(button.sizeHint(), QSize(24, 24));
    }

    void aFieldWithoutANameOfItsOwnIsItsText()
    {
        ReadoutField field;
        field.setText(QStringLiteral("A voice email"));
        QCOMPARE(QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Name), QStringLiteral("A voice email"));
    }

    void ownColoursFollowTheSchemeWhereNoThemeHasColoured()
    {
        applyColorScheme(ColorScheme::NoPreference);
        QCOMPARE(QApplication::palette().color(QPalette::Window), lightPalette().color(QPalette::Window));
        applyColorScheme(ColorScheme::Dark);
        QCOMPARE(QApplication::palette().color(QPalette::Window), darkPalette().color(QPalette::Window));
        applyColorScheme(ColorScheme::Light);
        QCOMPARE(QApplication::palette().color(QPalette::Window), lightPalette().color(QPalette::Window));
    }

    void textStandsOutInBothSchemes()
    {
        for (const QPalette &palette : {lightPalette(), darkPalette()}) {
            const int window = palette.color(QPalette::Window).lightness();
            QVERIFY(qAbs(palette.color(QPalette::WindowText).lightness() - window) > 180);
            QVERIFY(qAbs(palette.color(QPalette::Disabled, QPalette::WindowText).lightness() - window) > 50);
        }
    }

    void theMeterHasRoundEnds()
    {
        QWidget window;
        window.setPalette(QPalette(Qt::white, Qt::white));
        MeterFrame frame(&window);
        auto *layout = new QVBoxLayout(&frame);
        layout->setContentsMargins(0, 0, 0, 0);
        auto *bar = new QWidget;
        bar->setAutoFillBackground(true);
        bar->setPalette(QPalette(Qt::black, Qt::black));
        layout->addWidget(bar);
        frame.resize(60, 8);
        window.resize(60, 8);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const QImage image = window.grab().toImage();
        QVERIFY(image.pixelColor(0, 0).lightness() > 200);
        QCOMPARE(image.pixelColor(30, 4), QColor(Qt::black));
        QVERIFY(image.pixelColor(image.width() - 1, image.height() - 1).lightness() > 200);
    }
};

QTEST_MAIN(TestControls)
#include "tst_controls.moc"
