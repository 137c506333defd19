// Chooses the wallpaper adapter for the current desktop environment.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/DesktopPictures.h"

#include <memory>
#include <string_view>

namespace vantrel {

// `currentDesktop` is the value of XDG_CURRENT_DESKTOP. Never returns null: falls back to the root window if
// the desktop does not manage a wallpaper.
[[nodiscard]] std::unique_ptr<DesktopPictures> desktopPictures(std::string_view currentDesktop,
                                                               std::shared_ptr<X11Connection> connection);

} // namespace vantrel
