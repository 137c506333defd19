#include "VantrelCore/model/UsageStats.h"

#include "VantrelCore/model/Counting.h"
#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

namespace {

void countOne(std::int64_t& counter) {
    counter = saturatingSum(counter, 1);
}

} // namespace

void UsageStats::recordRestore(std::int64_t windows, const std::string& deskID, Date at) {
    countOne(restores);
    recordEvent(windows, deskID, at);
}

void UsageStats::recordSceneSwitch(std::int64_t windows, const std::string& deskID, Date at) {
    countOne(sceneSwitches);
    recordRestore(windows, deskID, at);
}

void UsageStats::recordStashUse(std::int64_t windows, const std::string& deskID, Date at) {
    countOne(stashUses);
    recordEvent(windows, deskID, at);
}

void UsageStats::recordUndo(std::int64_t windows, const std::string& deskID, Date at) {
    countOne(undoUses);
    recordEvent(windows, deskID, at);
}

void UsageStats::recordSettled(std::int64_t windows, const std::string& deskID, Date at) {
    recordEvent(windows, deskID, at);
}

void UsageStats::recordEvent(std::int64_t windows, const std::string& deskID, Date at) {
    if (windows > 0) {
        windowsVantrel = saturatingSum(windowsVantrel, windows);
    }
    if (!deskID.empty()) {
        deskIDs.insert(deskID);
    }
    if (!firstRecordedAt) {
        firstRecordedAt = at;
    }
}

void to_json(nlohmann::json& json, const UsageStats& stats) {
    json = {{"restores", stats.restores},           {"windowsVantrel", stats.windowsVantrel},
            {"sceneSwitches", stats.sceneSwitches}, {"stashUses", stats.stashUses},
            {"undoUses", stats.undoUses},           {"deskIDs", stats.deskIDs}};
    JsonCoding::put(json, "firstRecordedAt", stats.firstRecordedAt);
}

void from_json(const nlohmann::json& json, UsageStats& stats) {
    UsageStats read;
    read.restores = JsonCoding::required<std::int64_t>(json, "restores");
    read.windowsVantrel = JsonCoding::required<std::int64_t>(json, "windowsVantrel");
    read.sceneSwitches = JsonCoding::required<std::int64_t>(json, "sceneSwitches");
    read.stashUses = JsonCoding::required<std::int64_t>(json, "stashUses");
    read.undoUses = JsonCoding::required<std::int64_t>(json, "undoUses");
    for (auto& deskID : JsonCoding::required<std::vector<std::string>>(json, "deskIDs")) {
        read.deskIDs.insert(std::move(deskID));
    }
    read.firstRecordedAt = JsonCoding::optional<Date>(json, "firstRecordedAt");
    stats = std::move(read);
}

} // namespace vantrel
