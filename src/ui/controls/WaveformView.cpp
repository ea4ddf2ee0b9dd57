#include "ui/controls/WaveformView.h"

#include "ui/PlaybackWording.h"
#include "ui/controls/Icons.h"
#include "ui/controls/WaveformAccessible.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kest {

namespace {

constexpr double barWidth = 2.0;
constexpr double barPitch = 4.0;
constexpr double leastBar = 2.0;
constexpr double sideRoom = 2.0; // for the focus ring and the place at either end
constexpr double ringRadius = 6.0;

/// Below this a bar has its least height, in dBFS: quieter than a quiet room.
constexpr double quietest = -48.0;

// Steps of the keyboard, in seconds.
constexpr double leastStep = 0.25;
constexpr double greatestStep = 5.0;
constexpr double stepsInAll = 20.0;
constexpr double stepsInAPage = 4.0;

} // namespace

WaveformView::WaveformView(QWidget *parent)
    : QWidget(parent)
{
    installWaveformAccessible();
    setFocusPolicy(Qt::StrongFocus);
    setLayoutDirection(Qt::LeftToRight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void WaveformView::setPeaks(const QList<float> &peaks)
{
    m_peaks = peaks;
    update();
}

void WaveformView::setLength(double seconds)
{
    m_length = std::max(0.0, seconds);
    m_position = std::min(m_position, m_length);
    setCursor(m_length > 0.0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void WaveformView::setPosition(double seconds)
{
    if (!m_dragging)
        show(seconds);
}

void WaveformView::show(double seconds)
{
    m_position = std::clamp(seconds, 0.0, m_length);
    update();
    Q_EMIT positionShown(m_position);
}

void WaveformView::choose(double seconds)
{
    show(seconds);
    tellAssistants();
    Q_EMIT seekRequested(m_position);
}

// Not while it plays: a screen reader would speak without end.
void WaveformView::tellAssistants()
{
    QAccessibleValueChangeEvent event(this, m_position);
    QAccessible::updateAccessibility(&event);
}

QString WaveformView::valueText() const
{
    return positionOfLengthText(m_position, m_length);
}

double WaveformView::step() const
{
    return std::clamp(m_length / stepsInAll, leastStep, greatestStep);
}

double WaveformView::xOf(double seconds) const
{
    const double room = width() - 2 * sideRoom;
    return sideRoom + (m_length > 0.0 ? room * seconds / m_length : 0.0);
}

double WaveformView::secondsAt(const QPointF &place) const
{
    const double room = std::max(1.0, width() - 2 * sideRoom);
    return std::clamp((place.x() - sideRoom) / room, 0.0, 1.0) * m_length;
}

float WaveformView::loudness(int bar, int bars) const
{
    const auto first = m_peaks.size() * bar / bars;
    const auto behind = std::max(first + 1, m_peaks.size() * (bar + 1) / bars);
    const float peak = *std::max_element(m_peaks.begin() + first, m_peaks.begin() + std::min(behind, m_peaks.size()));
    const double decibels = 20.0 * std::log10(std::max(1e-6, static_cast<double>(peak)));
    return static_cast<float>(std::clamp(1.0 - decibels / quietest, 0.0, 1.0));
}

void WaveformView::paintBars(QPainter &painter, const QColor &color) const
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const int bars = std::max(1, static_cast<int>((width() - 2 * sideRoom + barPitch - barWidth) / barPitch));
    const double room = height() - 2 * sideRoom;
    // Spread, so that the last bar ends where the sound does.
    const double pitch = bars > 1 ? (width() - 2 * sideRoom - barWidth) / (bars - 1) : 0.0;
    for (int bar = 0; bar < bars; ++bar) {
        const double loud = m_peaks.isEmpty() ? 0.0 : static_cast<double>(loudness(bar, bars));
        const double high = std::max(leastBar, loud * room);
        painter.drawRoundedRect(QRectF(sideRoom + bar * pitch, (height() - high) / 2.0, barWidth, high), barWidth / 2.0,
                                barWidth / 2.0);
    }
}

void WaveformView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
    const QColor ground = palette().color(QPalette::Window);
    const bool usable = isEnabled() && m_length > 0.0;
    paintBars(painter, mixed(ground, ink, usable ? 0.56 : 0.25));
    const QColor accent = lineAccent(palette());
    if (usable && m_position > 0.0) {
        const double x = xOf(m_position);
        painter.save();
        painter.setClipRect(QRectF(0, 0, x, height()));
        paintBars(painter, accent);
        painter.restore();
        painter.setPen(Qt::NoPen);
        painter.setBrush(accent);
        painter.drawRoundedRect(QRectF(std::clamp(x - 1.0, 0.0, width() - 2.0), 0, 2.0, height()), 1.0, 1.0);
    }
    if (hasFocus() && m_keyboard) {
        painter.setPen(QPen(accent, 2.0));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), ringRadius, ringRadius);
    }
}

bool WaveformView::event(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange)
        m_dragging = false;
    // The window has a use of its own for the arrow keys, but not while they move something here.
    if (event->type() == QEvent::ShortcutOverride && goalOf(*static_cast<QKeyEvent *>(event)))
        event->accept();
    return QWidget::event(event);
}

void WaveformView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_length <= 0.0)
        return QWidget::mousePressEvent(event);
    m_keyboard = false;
    m_dragging = true;
    show(secondsAt(event->position()));
}

void WaveformView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_dragging)
        show(secondsAt(event->position()));
}

void WaveformView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_dragging)
        return;
    m_dragging = false;
    choose(secondsAt(event->position()));
}

/// Seconds; nothing for a key that moves nothing here.
std::optional<double> WaveformView::goalOf(const QKeyEvent &event) const
{
    const double page = step() * stepsInAPage;
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return std::nullopt;
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return m_position - step();
    case Qt::Key_Right:
    case Qt::Key_Up:
        return m_position + step();
    case Qt::Key_PageDown:
        return m_position - page;
    case Qt::Key_PageUp:
        return m_position + page;
    case Qt::Key_Home:
        return 0.0;
    case Qt::Key_End:
        return m_length;
    default:
        return std::nullopt;
    }
}

void WaveformView::keyPressEvent(QKeyEvent *event)
{
    m_keyboard = true;
    const std::optional<double> goal = goalOf(*event);
    if (!goal)
        return QWidget::keyPressEvent(event);
    if (m_length > 0.0)
        choose(*goal);
}

void WaveformView::focusInEvent(QFocusEvent *event)
{
    m_keyboard = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QWidget::focusInEvent(event);
}

// A turn of the wheel over the window is meant for nothing here.
void WaveformView::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

} // namespace kest
