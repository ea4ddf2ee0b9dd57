#include "gui/Contrast.h"
#include "gui/WindowHouse.h"
#include "ui/Appearance.h"
#include "ui/Wording.h"
#include "ui/controls/ControlButton.h"
#include "ui/controls/ReadoutField.h"
#include "ui/controls/WaveformView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEnterEvent>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>

using namespace kest;
using namespace kest::test;
using namespace Qt::StringLiterals;

namespace {

// WCAG 2.2, success criteria 1.4.3 (text, large text) and 1.4.11 (what else carries meaning).
constexpr double forText = 4.5;
constexpr double forLargeText = 3.0;
constexpr double forPictures = 3.0;
/// What is disabled is exempt there; it is still to be made out.
constexpr double forDisabled = 2.0;

constexpr int largeText = 24; // pixels: 18 points
/// Of a stroke's own colour, drawn at the scale of these pictures; its edges are mixed.
constexpr int leastPixels = 12;

/// What shows a text or a picture of its own.
bool hasInk(const QWidget &widget)
{
    const auto *label = qobject_cast<const QLabel *>(&widget);
    if (label)
        return !label->text().isEmpty();
    const auto *box = qobject_cast<const QComboBox *>(&widget);
    return box || qobject_cast<const QAbstractButton *>(&widget) || qobject_cast<const QLineEdit *>(&widget)
        || qobject_cast<const QPlainTextEdit *>(&widget) || qobject_cast<const QTextEdit *>(&widget);
}

/// Round corners show what lies behind a button.
QRect withoutCorners(const QWidget &widget, const QRect &place)
{
    const int rim = qobject_cast<const ControlButton *>(&widget) ? place.height() / 4 : 0;
    return place.adjusted(rim, rim, -rim, -rim);
}

double neededBy(const QWidget &widget)
{
    if (!widget.isEnabled())
        return forDisabled;
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    if (button && button->text().isEmpty())
        return forPictures;
    return QFontInfo(widget.font()).pixelSize() >= largeText ? forLargeText : forText;
}

QImage pictureOf(QWidget &widget)
{
    QWidget &window = *widget.window();
    const double scale = window.devicePixelRatioF();
    const QRect place(widget.mapTo(&window, QPoint()) * scale, widget.size() * scale);
    return window.grab().toImage().copy(place);
}

} // namespace

/// Looks at what is drawn, three times as large as usual, in both of our palettes.
class TestContrast : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowHouse> m_house;
    QStringList m_faint;

    QWidget &window() { return *m_house->controller->window(); }

    void open(ColorScheme scheme)
    {
        applyColorScheme(scheme);
        m_house = std::make_unique<WindowHouse>();
        m_house->openAndShow();
        m_house->controller->inputNameField()->setText(u"BM"_s);
    }

    /// Notes what is too faint in a window as it is now.
    void look(QWidget &root, const QString &state)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        const QImage all = root.grab().toImage();
        const double scale = root.devicePixelRatioF();
        for (QWidget *widget : root.findChildren<QWidget *>()) {
            if (!widget->isVisible() || widget->window() != &root || !hasInk(*widget) || widget->visibleRegion().isEmpty())
                continue;
            const QRect seen = widget->visibleRegion().boundingRect().translated(widget->mapTo(&root, QPoint()));
            const QRect inner = withoutCorners(*widget, seen);
            const Drawn drawn = drawnIn(all.copy(QRect(inner.topLeft() * scale, inner.size() * scale)), leastPixels);
            if (drawn.ratio() < neededBy(*widget))
                m_faint.append(u"%1: %2 is %3 on %4, %5 of %6"_s.arg(state, widget->objectName() + u' ' + widget->accessibleName(), drawn.ink.name(),
                                                       drawn.ground.name())
                                   .arg(drawn.ratio(), 0, 'f', 2).arg(neededBy(*widget)));
        }
    }

    void lookAtWindow(const QString &state) { look(window(), state); }

    void recordToTheEnd()
    {
        m_house->record();
        m_house->controller->audioRecordingStop();
        m_house->player.read(40.0, QList<float>(512, 0.3F));
    }

    static void addSchemes()
    {
        QTest::addColumn<ColorScheme>("scheme");
        QTest::newRow("light") << ColorScheme::Light;
        QTest::newRow("dark") << ColorScheme::Dark;
    }

private Q_SLOTS:
    void init() { m_faint.clear(); }
    void cleanup() { m_house.reset(); }

    void textsAndPicturesOfTheWindow_data() { addSchemes(); }

    void textsAndPicturesOfTheWindow()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        lookAtWindow(u"idle"_s);
        m_house->record();
        m_house->clock.advance(61.0);
        m_house->controller->audioRecordingUpdateTimeWithTimer();
        lookAtWindow(u"recording"_s);
        m_house->controller->audioRecordingPauseResume();
        lookAtWindow(u"paused"_s);
        m_house->controller->audioRecordingStop();
        lookAtWindow(u"stopped"_s);
        QCOMPARE(m_faint.join(u'\n'), QString());
    }

    void noticesOfEveryKind_data() { addSchemes(); }

    void noticesOfEveryKind()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        using enum NoticePlace::Subject;
        for (const NoticePlace::Subject subject : {Progress, Hint, Recording, Warning, Size, Mail, Settings, Status}) {
            m_house->controller->notices().tell(subject, wordsFor(RecordingTrouble::MicrophoneLost));
            lookAtWindow(u"notice %1"_s.arg(static_cast<int>(subject)));
            m_house->controller->notices().withdraw(subject);
        }
        QCOMPARE(m_faint.join(u'\n'), QString());
    }

    void theCardsBelow_data() { addSchemes(); }

    void theCardsBelow()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        m_house->controller->windowToggleExpanded();
        QTRY_COMPARE(window().height(), 321);
        lookAtWindow(u"no recording"_s);
        recordToTheEnd();
        lookAtWindow(u"a recording"_s);
        m_house->connection.setState({.kind = MailConnectionState::Kind::AddOnMissing, .application = u"Thunderbird"_s,
                                      .accounts = {}, .version = {}, .canInstall = true});
        lookAtWindow(u"no add-on"_s);
        m_house->player.fail(PlaybackTrouble::OutputLost);
        lookAtWindow(u"listening failed"_s);
        m_house->click(u"Discard Recording"_s);
        lookAtWindow(u"discarded"_s);
        QCOMPARE(m_faint.join(u'\n'), QString());
    }

    void thePreferences_data() { addSchemes(); }

    void thePreferences()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        QDialog *sheet = m_house->openPreferences();
        look(*sheet, u"at first"_s);
        m_house->mail.answers[u"Accounts"_s] = QVariantList{QStringList{u"1"_s, u"Anna’s mail"_s, u"a@example.org"_s}};
        Q_EMIT m_house->mail.mailApplicationAppeared(u"Thunderbird"_s);
        m_house->find<QComboBox>(u"Sending Account"_s)->setCurrentIndex(0);
        Q_EMIT m_house->settings->troubleOccurred(u"The settings cannot be saved: Read-only file system."_s);
        look(*sheet, u"with a notice"_s);
        for (QCheckBox *box : sheet->findChildren<QCheckBox *>())
            box->toggle();
        look(*sheet, u"ticked"_s);
        QCOMPARE(m_faint.join(u'\n'), QString());
    }

    void aButtonUnderThePointer_data() { addSchemes(); }

    void aButtonUnderThePointer()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        recordToTheEnd();
        for (ControlButton *button : window().findChildren<ControlButton *>()) {
            QEnterEvent enters(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
            QCoreApplication::sendEvent(button, &enters);
        }
        lookAtWindow(u"pointed at"_s);
        for (ControlButton *button : window().findChildren<ControlButton *>())
            button->setDown(button->isEnabled());
        lookAtWindow(u"pressed"_s);
        QCOMPARE(m_faint.join(u'\n'), QString());
    }

    void theRecordButtonStandsOut_data() { addSchemes(); }

    void theRecordButtonStandsOut()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        const QImage button = pictureOf(*m_house->find(u"Record"_s));
        const QColor ground = button.pixelColor(0, 0);
        QVERIFY(contrast(drawnIn(button, leastPixels).ground, ground) >= forPictures);
        m_house->record();
        const QImage ring = pictureOf(*m_house->find(u"Record"_s));
        QVERIFY(contrast(ring.pixelColor(ring.width() / 2, 3), ground) >= forPictures); // that it is on air
    }

    void theEndOfTheLevelStandsOut_data() { addSchemes(); }

    /// The bar's own two colours are as like as day and noon.
    void theEndOfTheLevelStandsOut()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        m_house->record();
        m_house->recorders.last()->setAveragePower(0, -35.0F); // half of the bar
        m_house->controller->audioRecordingUpdateTimeWithTimer();
        const QImage bar = pictureOf(*window().findChild<QWidget *>(u"meterFrame"_s));
        const auto at = [&](double share) { return bar.pixelColor(qRound(bar.width() * share), bar.height() / 2); };
        const QColor lit = at(0.25);
        const QColor unlit = at(0.75);
        QVERIFY(lit != unlit);
        double best = 0.0;
        for (int x = bar.width() * 49 / 100; x < bar.width() * 51 / 100; ++x) {
            const QColor mark = bar.pixelColor(x, bar.height() / 2);
            best = qMax(best, qMin(contrast(mark, lit), contrast(mark, unlit)));
        }
        QVERIFY2(best >= forPictures, qPrintable(QString::number(best)));
    }

    void theWaveformAndWhatIsPlayedOfIt_data() { addSchemes(); }

    void theWaveformAndWhatIsPlayedOfIt()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        m_house->controller->windowToggleExpanded();
        QTRY_COMPARE(window().height(), 321);
        recordToTheEnd();
        QTest::mouseMove(&window(), QPoint(1, 1));
        auto *waveform = window().findChild<WaveformView *>();
        const QImage before = pictureOf(*waveform);
        const Drawn waiting = drawnIn(before, leastPixels);
        QVERIFY2(waiting.ratio() >= forPictures, qPrintable(QString::number(waiting.ratio())));
        waveform->setPosition(40.0);
        const Drawn played = drawnIn(pictureOf(*waveform), leastPixels);
        QVERIFY2(played.ratio() >= forPictures, qPrintable(QString::number(played.ratio())));
        QVERIFY(played.ink != waiting.ink);
    }

    void theFocusOfTheKeyboard_data() { addSchemes(); }

    void theFocusOfTheKeyboard()
    {
        QFETCH(ColorScheme, scheme);
        open(scheme);
        recordToTheEnd();
        QStringList faint;
        for (const QString &name : {u"Record"_s, u"New Message"_s, u"Reply"_s, u"Preferences"_s, u"Show More"_s}) {
            QWidget *control = m_house->find(name);
            const QImage without = pictureOf(*control);
            control->setFocus(Qt::TabFocusReason);
            QTest::keyClick(control, Qt::Key_Shift);
            const QImage with = pictureOf(*control);
            double best = 0.0;
            for (int x = 0; x < with.width(); ++x)
                best = qMax(best, contrast(with.pixelColor(x, with.height() / 2), without.pixelColor(x, with.height() / 2)));
            if (best < forPictures)
                faint.append(u"%1 %2"_s.arg(name).arg(best));
            m_house->find(u"Help"_s)->setFocus();
        }
        QCOMPARE(faint.join(u'\n'), QString());
    }
};

int main(int argc, char **argv)
{
    qputenv("QT_SCALE_FACTOR", "3"); // strokes wide enough to have their own colour inside
    QApplication app(argc, argv);
    TestContrast test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_contrast.moc"
