#pragma once

#include "platform/Error.h"

#include <QString>
#include <QStringList>

namespace kest {

/// The texts of a modal alert.
struct AlertContent {
    enum class Style { Warning, Informational, Critical };

    QString messageText;
    QString informativeText;
    QStringList buttons; ///< Left to right of importance; at least one.
    Style style = Style::Warning;

    /// An alert made from an error: its description above, its reason below,
    /// one "OK" button.
    static AlertContent fromError(const Error &error);
};

/// Shows alerts. The window's side implements it; those who need an alert know
/// only this.
class AlertPresenter
{
public:
    virtual ~AlertPresenter() = default;

    /// Shows the alert and returns when the person dismissed it: the index of
    /// the button. 0 at once when the program is ending.
    virtual int runModal(const AlertContent &content) = 0;
};

} // namespace kest
