#pragma once

#include <QString>

class QWidget;

namespace kest {

/// How a screen reader takes up an announcement: after what it is saying, or in its place. The numbers are those of the
/// accessibility bus (AtspiLive).
enum class Politeness { Polite = 1, Assertive = 2 };

/// Has a screen reader say `words`, as coming from `source`, wherever the person's focus is. Does nothing while none of
/// those who use the accessibility bus listens, while `source` is not on the screen, and for empty words. Never fails.
void announce(QWidget &source, const QString &words, Politeness politeness);

} // namespace kest
