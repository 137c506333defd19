// Port: the picture behind the windows, per display.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <optional>
#include <string>

namespace vantrel {

// Used off the main thread, by one thread at a time; a call may take as long as decoding a picture.
class DesktopPictures {
public:
    DesktopPictures() = default;
    DesktopPictures(const DesktopPictures&) = delete;
    DesktopPictures& operator=(const DesktopPictures&) = delete;
    virtual ~DesktopPictures() = default;

    // The URL of the display's picture; none when it is unknown or the display shows no picture.
    [[nodiscard]] virtual std::optional<std::string> picture(const DisplayInfo& display) = 0;

    // Shows the picture, given as a path or as a URL from picture(). A desktop that supports only one picture
    // shows it on every display. False on failure.
    virtual bool setPicture(const DisplayInfo& display, const std::string& picture) = 0;
};

} // namespace vantrel
