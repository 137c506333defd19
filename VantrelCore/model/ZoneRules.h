// How far the clocks of a place are from UTC, and since when: what a zone of the tz database says.
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
    // By time.
    std::vector<ZoneTransition> transitions;
    // From the last transition on; without it the last offset stays.
    std::optional<PosixZone> afterwards;

    bool operator==(const ZoneRules&) const = default;
};

} // namespace vantrel
