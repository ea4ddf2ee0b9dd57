#pragma once

#include "ui/WindowFrame.h"

#include <QObject>
#include <QPointer>

class QVariantAnimation;
class QWidget;

namespace kest {

/// Gives a window of fixed size its frames, at once or by and by.
class WindowSizer : public QObject
{
    Q_OBJECT

public:
    /// `window` may go away first.
    explicit WindowSizer(QWidget *window, QObject *parent = nullptr);

    /// How many pixels of the screen a point of a frame's height and y is; 1 at first. See textScale.
    void setVerticalScale(double scale) { m_verticalScale = scale; }

    /// Where the window is, or is moving to. All zero without a window.
    WindowFrame frame() const;

    void setFrame(const WindowFrame &frame);

    /// Slides there, unless the desktop wants no animations. `reached` is
    /// emitted at the end, also where there is nothing to slide.
    void animateToFrame(const WindowFrame &frame);

Q_SIGNALS:
    void reached();

private:
    QRect screenArea() const;
    QRect geometryOf(const WindowFrame &frame) const;
    int duration() const;
    void apply(const QRect &geometry);
    void settle(const QRect &geometry);

    QPointer<QWidget> m_window;
    QVariantAnimation *m_animation;
    WindowFrame m_goal;
    double m_verticalScale = 1.0;
};

} // namespace kest
