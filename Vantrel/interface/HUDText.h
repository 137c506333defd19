// What the heads-up display says of an event: a headline and, below it, a detail.
#pragma once

#include "Vantrel/controller/HUDEvent.h"

#include <string>

namespace vantrel {

struct HUDText {
    std::string headline;
    // Empty when the headline says it all.
    std::string detail;

    bool operator==(const HUDText&) const = default;

    [[nodiscard]] static HUDText of(const HUDEvent& event);
};

} // namespace vantrel
