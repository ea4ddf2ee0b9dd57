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

    int runModal(const AlertContent &content) override;

private:
    QPointer<QWidget> m_window;
};

} // namespace kest
