#include "Vantrel/commands/ReportMessage.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantrel {

using namespace JsonCoding;

namespace {

constexpr std::array<std::pair<RestoreReport::Kind, std::string_view>, 4> outcomes{{
    {RestoreReport::Kind::restored, "restored"},
    {RestoreReport::Kind::retried, "retried"},
    {RestoreReport::Kind::skipped, "skipped"},
    {RestoreReport::Kind::failed, "failed"},
}};

nlohmann::json itemJson(const RestoreReport::Item& item) {
    nlohmann::json json{{"appName", item.appName},
                        {"bundleID", item.bundleID},
                        {"title", item.title},
                        {"outcome", outcomeName(item.outcome.kind)},
                        {"reason", item.outcome.reason}};
    if (!item.outcome.note.empty()) {
        json["note"] = item.outcome.note;
    }
    return json;
}

RestoreReport::Item readItem(const nlohmann::json& json) {
    const auto outcome = required<std::string>(json, "outcome");
    const auto known = std::ranges::find(outcomes, outcome, [](const auto& pair) { return pair.second; });
    if (known == outcomes.end()) {
        throw Error("unknown outcome " + outcome);
    }
    return {required<std::string>(json, "appName"),
            required<std::string>(json, "bundleID"),
            required<std::string>(json, "title"),
            {known->first, required<std::string>(json, "reason"),
             optional<std::string>(json, "note").value_or("")}};
}

} // namespace

std::string_view outcomeName(RestoreReport::Kind kind) {
    const auto* const known = std::ranges::find(outcomes, kind, [](const auto& pair) { return pair.first; });
    return known->second;
}

void to_json(nlohmann::json& json, const RestoreReport& report) {
    auto items = nlohmann::json::array();
    for (const auto& item : report.items) {
        items.push_back(itemJson(item));
    }
    json = {{"expected", report.expectedCount()}, {"restored", report.restoredCount()},
            {"skipped", report.skippedCount()},   {"failed", report.failedCount()},
            {"elapsed", report.elapsed},          {"items", items}};
}

void from_json(const nlohmann::json& json, RestoreReport& report) {
    report.elapsed = required<double>(json, "elapsed");
    requireObject(json);
    report.items.clear();
    const auto items = json.find("items");
    if (items == json.end()) {
        throw Error("missing key items");
    }
    requireArray(*items);
    for (const auto& item : *items) {
        report.items.push_back(readItem(item));
    }
}

} // namespace vantrel
