#pragma once

namespace kest {

/// Lets assistive technology find a PullDownButton's menu under its button: the
/// toolkit knows only its own menus. Any number of calls installs it once.
void installPullDownAccessible();

} // namespace kest
