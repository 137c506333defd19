// How a scene settlement ended.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel {

struct SettlementSummary {
    std::int64_t opened = 0;
    std::int64_t placed = 0;
    // Names of the applications still awaited, sorted.
    std::vector<std::string> stragglers;

    bool operator==(const SettlementSummary&) const = default;
};

} // namespace vantrel
