// Wallpapers on GNOME, Cinnamon and MATE, which keep one wallpaper for all displays in their settings.
#pragma once

#include "VantrelCore/ports/DesktopPictures.h"

#include <memory>
#include <string_view>

namespace vantrel {

// Returns null if `currentDesktop`, the value of XDG_CURRENT_DESKTOP, is another desktop or lacks these
// settings.
[[nodiscard]] std::unique_ptr<DesktopPictures> settingPictures(std::string_view currentDesktop);

} // namespace vantrel
