// Pictures on the X server's root window, for desktops that leave it to whoever wants to paint it.
//
// One pixmap covers the whole screen. Two root properties that every painter knows name it, so that panels
// and terminals which look transparent find it; a third, our own, says which picture is on which display. A
// pixmap that another program has left there is kept alive, and named by a URL of its own.
#pragma once

#include "VantrelCore/ports/DesktopPictures.h"

namespace vantrel {

class RootPictures final : public DesktopPictures {
public:
    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& display) override;
    bool setPicture(const DisplayInfo& display, const std::string& picture) override;
};

} // namespace vantrel
