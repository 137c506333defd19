// Records how a desk was arranged on a given day.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace vantrel {

struct DailyLayoutObservation {
    std::string configID;
    // "yyyy-MM-dd" in the user's calendar.
    std::string day;
    // From PatternSuggestion::signature.
    std::vector<std::string> signature;

    bool operator==(const DailyLayoutObservation&) const = default;
};

void to_json(nlohmann::json& json, const DailyLayoutObservation& observation);
void from_json(const nlohmann::json& json, DailyLayoutObservation& observation);

} // namespace vantrel
