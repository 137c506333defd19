// Counts the outcomes of restoring one application's windows, and judges whether it is stubborn.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/RestoreLog.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct AppReliability {
    static constexpr std::int64_t minAttemptsForVerdict = 3;
    static constexpr double stubbornFailureRate = 0.4;

    std::string bundleID;
    std::string appName;
    std::int64_t restoredCount = 0;
    std::int64_t retriedCount = 0;
    std::int64_t failedCount = 0;
    std::int64_t skippedCount = 0;
    std::optional<std::string> lastFailureReason;
    Date lastSeen;

    bool operator==(const AppReliability&) const = default;

    // Skipped windows are not attempts.
    [[nodiscard]] std::int64_t attempts() const;
    // In place at once or after a retry.
    [[nodiscard]] std::int64_t landed() const;
    // The fraction of attempts that failed; none without attempts.
    [[nodiscard]] std::optional<double> failureRate() const;
    // Enough attempts for a verdict, and more than `stubbornFailureRate` of them failed.
    [[nodiscard]] bool isStubborn() const;

    // Counts one window of this application. `lastSeen` never goes back. `appName` comes from the newest item
    // that has one, as applications can be renamed or change language.
    [[nodiscard]] AppReliability ingesting(const RestoreLog::Item& item, Date at) const;
};

void to_json(nlohmann::json& json, const AppReliability& app);
void from_json(const nlohmann::json& json, AppReliability& app);

} // namespace vantrel
