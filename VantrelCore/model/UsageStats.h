// Totals since the first recorded event, for the usage summary.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <set>
#include <string>

namespace vantrel {

struct UsageStats {
    // Includes scene switches: to the user, a switch also restores the desk.
    std::int64_t restores = 0;
    // Windows put back.
    std::int64_t windowsVantrel = 0;
    std::int64_t sceneSwitches = 0;
    std::int64_t stashUses = 0;
    std::int64_t undoUses = 0;
    // Every desk with a recorded event.
    std::set<std::string> deskIDs;
    std::optional<Date> firstRecordedAt;

    bool operator==(const UsageStats&) const = default;

    // Each also adds `windows` if positive, adds `deskID` unless empty, and sets firstRecordedAt the first
    // time.
    void recordRestore(std::int64_t windows, const std::string& deskID, Date at);
    void recordSceneSwitch(std::int64_t windows, const std::string& deskID, Date at);
    void recordStashUse(std::int64_t windows, const std::string& deskID, Date at);
    void recordUndo(std::int64_t windows, const std::string& deskID, Date at);
    // Windows that appeared after their scene switch had been recorded.
    void recordSettled(std::int64_t windows, const std::string& deskID, Date at);

private:
    void recordEvent(std::int64_t windows, const std::string& deskID, Date at);
};

void to_json(nlohmann::json& json, const UsageStats& stats);
void from_json(const nlohmann::json& json, UsageStats& stats);

} // namespace vantrel
