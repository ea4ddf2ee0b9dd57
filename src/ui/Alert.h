#pragma once

#include "platform/AlertPresenter.h"

#include <QPointer>
#include <QWidget>

namespace kest {

/// Alerts as modal message boxes, over the window once there is one.
class Alert : public AlertPresenter
{
public:
    /// `window` is not owned and may go away first; null: over the screen.
    void setWindow(QWidget *window) { m_window = window; }

    /// Shows no more of them: the program is ending, and nobody could answer.
    void stopShowing() { m_shows = false; }

    /// 0 also for one that is not shown.
    int runModal(const AlertContent &content) override;

private:
    bool m_shows = true;
    QPointer<QWidget> m_window;
};

} // namespace kest
