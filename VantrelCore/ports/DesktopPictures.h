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

    // The URL of the picture that the display shows; none when that is unknown or no picture.
    [[nodiscard]] virtual std::optional<std::string> picture(const DisplayInfo& display) = 0;

    // Shows the picture, a path or a URL as picture() gives it. A desktop that knows one picture only shows
    // it on every display. False when it could not be shown.
    virtual bool setPicture(const DisplayInfo& display, const std::string& picture) = 0;
};

} // namespace vantrel
