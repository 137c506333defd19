#include "VantrelCore/model/AppReliability.h"

#include "VantrelCore/model/Counting.h"
#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>

namespace vantrel {

namespace {

std::int64_t& counterOf(AppReliability& app, RestoreLog::Outcome outcome) {
    switch (outcome) {
    case RestoreLog::Outcome::restored:
        return app.restoredCount;
    case RestoreLog::Outcome::retried:
        return app.retriedCount;
    case RestoreLog::Outcome::failed:
        return app.failedCount;
    case RestoreLog::Outcome::skipped:
        break;
    }
    return app.skippedCount;
}

} // namespace

std::int64_t AppReliability::attempts() const {
    return saturatingSum(landed(), failedCount);
}

std::int64_t AppReliability::landed() const {
    return saturatingSum(restoredCount, retriedCount);
}

std::optional<double> AppReliability::failureRate() const {
    // A damaged file may have negative counts; treat them as no data.
    if (attempts() <= 0) {
        return std::nullopt;
    }
    return static_cast<double>(failedCount) / static_cast<double>(attempts());
}

bool AppReliability::isStubborn() const {
    return attempts() >= minAttemptsForVerdict && failureRate().value_or(0) > stubbornFailureRate;
}

AppReliability AppReliability::ingesting(const RestoreLog::Item& item, Date at) const {
    AppReliability next = *this;
    auto& counter = counterOf(next, item.outcome);
    counter = saturatingSum(counter, 1);
    if (item.outcome == RestoreLog::Outcome::failed && item.reason) {
        next.lastFailureReason = item.reason;
    }
    if (at >= lastSeen && !item.appName.empty()) {
        next.appName = item.appName;
    }
    next.lastSeen = std::max(lastSeen, at);
    return next;
}

void to_json(nlohmann::json& json, const AppReliability& app) {
    json = {{"bundleID", app.bundleID},           {"appName", app.appName},
            {"restoredCount", app.restoredCount}, {"retriedCount", app.retriedCount},
            {"failedCount", app.failedCount},     {"skippedCount", app.skippedCount}};
    JsonCoding::put(json, "lastFailureReason", app.lastFailureReason);
    JsonCoding::put(json, "lastSeen", app.lastSeen);
}

void from_json(const nlohmann::json& json, AppReliability& app) {
    app = {.bundleID = JsonCoding::required<std::string>(json, "bundleID"),
           .appName = JsonCoding::required<std::string>(json, "appName"),
           .restoredCount = JsonCoding::required<std::int64_t>(json, "restoredCount"),
           .retriedCount = JsonCoding::required<std::int64_t>(json, "retriedCount"),
           .failedCount = JsonCoding::required<std::int64_t>(json, "failedCount"),
           .skippedCount = JsonCoding::required<std::int64_t>(json, "skippedCount"),
           .lastFailureReason = JsonCoding::optional<std::string>(json, "lastFailureReason"),
           .lastSeen = JsonCoding::required<Date>(json, "lastSeen")};
}

} // namespace vantrel
