#pragma once

namespace kest {

/// Lets assistive technology read the text of a ReadoutField beside its name.
/// Any number of calls installs it once.
void installReadoutAccessible();

} // namespace kest
