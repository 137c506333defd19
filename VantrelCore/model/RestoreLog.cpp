#include "VantrelCore/model/RestoreLog.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <array>

namespace vantrel {

namespace {

using NamedOutcome = std::pair<RestoreLog::Outcome, const char*>;
constexpr std::array<NamedOutcome, 4> namedOutcomes{{{RestoreLog::Outcome::restored, "restored"},
                                                     {RestoreLog::Outcome::retried, "retried"},
                                                     {RestoreLog::Outcome::failed, "failed"},
                                                     {RestoreLog::Outcome::skipped, "skipped"}}};

} // namespace

std::size_t RestoreLog::prune(Date now) {
    const Date cutoff = dateAfter(now, -retentionSeconds);
    const std::size_t dropped =
        std::erase_if(entries, [&](const Entry& entry) { return entry.date < cutoff; });
    if (entries.size() > maxEntries) {
        entries.resize(maxEntries);
    }
    return dropped;
}

void to_json(nlohmann::json& json, RestoreLog::Outcome outcome) {
    json = std::ranges::find(namedOutcomes, outcome, &NamedOutcome::first)->second;
}

void from_json(const nlohmann::json& json, RestoreLog::Outcome& outcome) {
    const std::string name = JsonCoding::text(json);
    const auto* const found = std::ranges::find(namedOutcomes, name, &NamedOutcome::second);
    if (found == namedOutcomes.end()) {
        throw JsonCoding::Error("unknown outcome \"" + name + "\"");
    }
    outcome = found->first;
}

void to_json(nlohmann::json& json, const RestoreLog::Move& move) {
    json = {{"pairedBy", move.pairedBy}, {"from", move.from}, {"target", move.target}};
    JsonCoding::put(json, "achieved", move.achieved);
}

void from_json(const nlohmann::json& json, RestoreLog::Move& move) {
    move = {.pairedBy = JsonCoding::required<std::string>(json, "pairedBy"),
            .from = JsonCoding::required<Rect>(json, "from"),
            .target = JsonCoding::required<Rect>(json, "target"),
            .achieved = JsonCoding::optional<Rect>(json, "achieved")};
}

void to_json(nlohmann::json& json, const RestoreLog::Item& item) {
    json = {{"appName", item.appName},
            {"bundleID", item.bundleID},
            {"title", item.title},
            {"outcome", item.outcome}};
    JsonCoding::put(json, "reason", item.reason);
    JsonCoding::put(json, "note", item.note);
    JsonCoding::put(json, "move", item.move);
}

void from_json(const nlohmann::json& json, RestoreLog::Item& item) {
    item = {.appName = JsonCoding::required<std::string>(json, "appName"),
            .bundleID = JsonCoding::required<std::string>(json, "bundleID"),
            .title = JsonCoding::required<std::string>(json, "title"),
            .outcome = JsonCoding::required<RestoreLog::Outcome>(json, "outcome"),
            .reason = JsonCoding::optional<std::string>(json, "reason"),
            .note = JsonCoding::optional<std::string>(json, "note"),
            .move = JsonCoding::optional<RestoreLog::Move>(json, "move")};
}

void to_json(nlohmann::json& json, const RestoreLog::Entry& entry) {
    json = {{"reason", entry.reason},
            {"configID", entry.configID},
            {"elapsed", entry.elapsed},
            {"items", entry.items}};
    JsonCoding::put(json, "date", entry.date);
    JsonCoding::put(json, "sceneName", entry.sceneName);
}

void from_json(const nlohmann::json& json, RestoreLog::Entry& entry) {
    entry = {.date = JsonCoding::required<Date>(json, "date"),
             .reason = JsonCoding::required<std::string>(json, "reason"),
             .sceneName = JsonCoding::optional<std::string>(json, "sceneName"),
             .configID = JsonCoding::required<std::string>(json, "configID"),
             .elapsed = JsonCoding::required<double>(json, "elapsed"),
             .items = JsonCoding::required<std::vector<RestoreLog::Item>>(json, "items")};
}

void to_json(nlohmann::json& json, const RestoreLog& log) {
    json = {{"entries", log.entries}};
}

void from_json(const nlohmann::json& json, RestoreLog& log) {
    log.entries = JsonCoding::required<std::vector<RestoreLog::Entry>>(json, "entries");
}

} // namespace vantrel
