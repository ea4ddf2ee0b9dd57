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
    int duration() const;
    void apply(const QRect &geometry);
    void settle(const QRect &geometry);

    QPointer<QWidget> m_window;
    QVariantAnimation *m_animation;
    WindowFrame m_goal;
};

} // namespace kest
