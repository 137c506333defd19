// A place and size typed as numbers in the scene editor.
#pragma once

#include "VantrelCore/model/AppSizeBehavior.h"
#include "VantrelCore/model/DisplayInfo.h"

#include <string>

namespace vantrel {

// The frame a box gets, on the screen, and for people why it is not the one that was typed; empty if it is.
struct TypedPlace {
    Rect frame;
    std::string problem;

    // A typed frame stays on its display, inside the usable frame; the display is called by its name.
    [[nodiscard]] static TypedPlace of(const Rect& typed, const DisplayInfo& display,
                                       const std::string& appName,
                                       const AppSizeBehavior::Classification& limits);
};

} // namespace vantrel
