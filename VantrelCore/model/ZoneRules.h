// The UTC offsets of one tz database zone over time.
#pragma once

#include "VantrelCore/model/PosixZone.h"

#include <chrono>
#include <optional>
#include <vector>

namespace vantrel {

struct ZoneTransition {
    std::chrono::sys_seconds at;
    // East of UTC, from then on.
    std::chrono::seconds offset{0};

    bool operator==(const ZoneTransition&) const = default;
};

struct ZoneRules {
    // Before the first transition.
    std::chrono::seconds firstOffset{0};
    // Sorted by time.
    std::vector<ZoneTransition> transitions;
    // Applies after the last transition; if absent, the last offset stays.
    std::optional<PosixZone> afterwards;

    bool operator==(const ZoneRules&) const = default;
};

} // namespace vantrel
