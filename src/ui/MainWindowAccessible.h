#pragma once

namespace kest {

/// Tells assistive technology what the main window and its level meter are: a window, and a bar with a value in percent of
/// its width. The value is there for who asks; no change of it is announced, since a screen reader would talk into the
/// recording. Called before the window is filled; a second call does nothing.
void installMainWindowAccessible();

} // namespace kest
