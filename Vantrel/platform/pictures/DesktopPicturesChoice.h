// Chooses who shows the picture behind the windows on the desktop that is running.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/DesktopPictures.h"

#include <memory>
#include <string_view>

namespace vantrel {

// `currentDesktop` as in XDG_CURRENT_DESKTOP. Never null: where no desktop looks after its picture, the root
// window shows it.
[[nodiscard]] std::unique_ptr<DesktopPictures> desktopPictures(std::string_view currentDesktop,
                                                               std::shared_ptr<X11Connection> connection);

} // namespace vantrel
