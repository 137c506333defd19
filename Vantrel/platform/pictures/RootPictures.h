// Wallpapers on the X server's root window, for desktops that do not manage a wallpaper.
//
// One pixmap covers the whole screen. Two standard root properties point to it, so that pseudo-transparent
// panels and terminals can find it. A third property, our own, records which picture is on which display. A
// pixmap left by another program is kept alive and gets its own URL.
#pragma once

#include "VantrelCore/ports/DesktopPictures.h"

namespace vantrel {

class RootPictures final : public DesktopPictures {
public:
    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& display) override;
    bool setPicture(const DisplayInfo& display, const std::string& picture) override;
};

} // namespace vantrel
