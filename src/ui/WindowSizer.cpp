#include "ui/WindowSizer.h"

#include <QScreen>
#include <QStyle>
#include <QVariantAnimation>
#include <QWidget>

namespace kest {

WindowSizer::WindowSizer(QWidget *window, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_animation(new QVariantAnimation(this))
{
    m_animation->setEasingCurve(QEasingCurve::OutCubic);
    connect(m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { apply(value.toRect()); });
    connect(m_animation, &QVariantAnimation::finished, this, [this] { settle(m_animation->endValue().toRect()); });
}

QRect WindowSizer::screenArea() const
{
    return m_window->screen()->availableGeometry();
}

WindowFrame WindowSizer::frame() const
{
    if (!m_window)
        return {};
    if (m_animation->state() == QAbstractAnimation::Running)
        return m_goal;
    WindowFrame frame = frameFromGeometry(m_window->geometry(), screenArea());
    frame.y /= m_verticalScale;
    frame.height /= m_verticalScale;
    return frame;
}

QRect WindowSizer::geometryOf(const WindowFrame &frame) const
{
    WindowFrame scaled = frame;
    scaled.y *= m_verticalScale;
    scaled.height *= m_verticalScale;
    const QRect area = screenArea();
    QRect geometry = geometryFromFrame(scaled, area);
    // A low screen, or large text, may have less above the place where the window begins than it wants.
    const int highest = area.top() + m_window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    if (geometry.top() < highest)
        geometry.moveTop(highest);
    return geometry;
}

void WindowSizer::setFrame(const WindowFrame &frame)
{
    if (!m_window)
        return;
    m_animation->stop();
    settle(geometryOf(frame));
}

void WindowSizer::animateToFrame(const WindowFrame &frame)
{
    if (!m_window)
        return;
    const QRect end = geometryOf(frame);
    if (duration() == 0 || !m_window->isVisible())
        return setFrame(frame);
    m_goal = frame;
    m_animation->stop();
    m_animation->setDuration(duration());
    m_animation->setStartValue(m_window->geometry());
    m_animation->setEndValue(end);
    m_animation->start();
}

int WindowSizer::duration() const
{
    return m_window->style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, m_window);
}

void WindowSizer::apply(const QRect &geometry)
{
    if (!m_window)
        return;
    // Moved only when it has to: the window manager may have placed the window a little off.
    if (geometry.topLeft() != m_window->geometry().topLeft())
        m_window->setGeometry(QRect(geometry.topLeft(), m_window->size()));
    m_window->setFixedSize(geometry.size());
}

void WindowSizer::settle(const QRect &geometry)
{
    apply(geometry);
    Q_EMIT reached();
}

} // namespace kest
