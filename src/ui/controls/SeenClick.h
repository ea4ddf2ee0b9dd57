#pragma once

#include <functional>

class QAbstractButton;
class QObject;
class QWidget;

namespace kest {

/// Calls `clicked` for the clicks of a button that can be seen, as long as
/// `context` lives.
///
/// A person presses what can be seen; over the accessibility bus any program
/// presses anything, and such a press lasts so long that the window may be back
/// when it clicks. So it counts only when the window was there at both ends.
void onSeenClick(QAbstractButton &button, QObject *context, std::function<void()> clicked);

/// Whether a person may be looking at it: it is shown, and neither its window
/// nor one that this belongs to is minimized.
bool canBeSeen(const QWidget &widget);

} // namespace kest
