// The heads-up display's text for an event: a headline, a detail below it, and a symbol.
#pragma once

#include "Vantrel/controller/HUDEvent.h"

#include <string>
#include <string_view>

namespace vantrel {

struct HUDText {
    std::string headline;
    // Empty when the headline is enough.
    std::string detail;
    // See Symbols.
    std::string_view symbol;

    bool operator==(const HUDText&) const = default;

    [[nodiscard]] static HUDText of(const HUDEvent& event);
};

} // namespace vantrel
