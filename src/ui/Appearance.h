#pragma once

#include <QPalette>

namespace kest {

/// What the person asked the desktop for.
enum class ColorScheme { NoPreference, Dark, Light };

/// The application's own colours.
QPalette lightPalette();
QPalette darkPalette();

/// Gives the application its own colours in that scheme, unless the desktop's
/// theme has given it colours already: those stand. Needs the QApplication; may
/// be called again when the person changes their mind.
void applyColorScheme(ColorScheme scheme);

/// The same colours, but quieter texts: for what need not be read.
QPalette subdued(QPalette palette);

} // namespace kest
