#pragma once

namespace kest {

/// Gives a PopUpButton its own name for assistive technology; a plain combo box
/// is named by what is chosen in it. Any number of calls installs it once.
void installPopUpAccessible();

} // namespace kest
