// The text that the heads-up display shows for an event: a headline and a detail below it.
#pragma once

#include "Vantrel/controller/HUDEvent.h"

#include <string>

namespace vantrel {

struct HUDText {
    std::string headline;
    // Empty when the headline is enough.
    std::string detail;

    bool operator==(const HUDText&) const = default;

    [[nodiscard]] static HUDText of(const HUDEvent& event);
};

} // namespace vantrel
