// Whether the desktop's settings permit animations.
#pragma once

namespace vantrel::DesktopMotion {

// True on desktops without such a setting.
[[nodiscard]] bool isWanted();

} // namespace vantrel::DesktopMotion
