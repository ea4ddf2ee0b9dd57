#pragma once

#include "platform/Platform.h"

namespace kest {

/// To be called before the application object is made: prefers X11 (or
/// Xwayland) to Wayland, where both are there and the person did not choose, and
/// has pictures sent to it rather than shared with it.
void preferX11();

/// To be called right after the application object was made: what the programs
/// that we start inherit is again what it was.
void forgetX11Preference();

/// Everything of Linux that the application uses. Needs the application object;
/// returns at once, whatever state the sound server, the bus and the display
/// are in.
Platform makeLinuxPlatform();

} // namespace kest
