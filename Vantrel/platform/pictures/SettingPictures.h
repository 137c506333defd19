// The picture of desktops that keep it in their settings and show one on all displays: GNOME, Cinnamon, MATE.
#pragma once

#include "VantrelCore/ports/DesktopPictures.h"

#include <memory>
#include <string_view>

namespace vantrel {

// None where the desktop, as XDG_CURRENT_DESKTOP names it, is none of them or has no such settings.
[[nodiscard]] std::unique_ptr<DesktopPictures> settingPictures(std::string_view currentDesktop);

} // namespace vantrel
