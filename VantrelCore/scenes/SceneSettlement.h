// Waits for windows of the applications that a scene launched: which are awaited, which are placed, and the
// deadline.
#pragma once

#include "VantrelCore/model/Date.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vantrel {

// How a scene settlement ended.
struct SettlementSummary {
    std::int64_t opened = 0;
    std::int64_t placed = 0;
    // Names of the applications still awaited, sorted.
    std::vector<std::string> stragglers;

    bool operator==(const SettlementSummary&) const = default;
};

struct SceneSettlement {
    struct LaunchedApp {
        std::string bundleID;
        std::string appName;

        bool operator==(const LaunchedApp&) const = default;
    };

    // Fixed at creation, like sceneName, token and opened.
    std::string sceneID;
    std::string sceneName;
    // The controller's serial number; a poll with a different token is stale.
    std::int64_t token = 0;
    Date deadline;
    // Bundle identifier to application name.
    std::map<std::string, std::string> awaiting;
    // Bundle identifiers in placing order.
    std::vector<std::string> placed;
    // The number of launches at creation, including repeats.
    std::int64_t opened = 0;

    bool operator==(const SceneSettlement&) const = default;

    // Awaits every launched application; if an application appears twice, its later name wins.
    [[nodiscard]] static SceneSettlement make(std::string sceneID, std::string sceneName, std::int64_t token,
                                              const std::vector<LaunchedApp>& launched, Date deadline);

    [[nodiscard]] bool isComplete() const { return awaiting.empty(); }
    // True from the deadline on.
    [[nodiscard]] bool isExpired(Date now) const { return now >= deadline; }
    [[nodiscard]] std::vector<std::string> pendingBundleIDs() const;
    // In byte order.
    [[nodiscard]] std::vector<std::string> stragglerNames() const;
    [[nodiscard]] SettlementSummary summary() const;

    // Marks the application as placed. False, without a change, if it was not awaited.
    bool markPlaced(const std::string& bundleID);

    // Called when the same scene is applied again: sets a new deadline and awaits the launched applications
    // unless already placed.
    void refresh(const std::vector<LaunchedApp>& launched, Date newDeadline);
};

} // namespace vantrel
