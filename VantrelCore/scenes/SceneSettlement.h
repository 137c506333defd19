// The wait for the windows of applications that applying a scene has launched: who is still awaited, who has
// been placed, and until when.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/scenes/SettlementSummary.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vantrel {

struct SceneSettlement {
    struct LaunchedApp {
        std::string bundleID;
        std::string appName;

        bool operator==(const LaunchedApp&) const = default;
    };

    // Fixed at creation, as are sceneName, token and opened.
    std::string sceneID;
    std::string sceneName;
    // The controller's serial number; a poll that carries another one is stale.
    std::int64_t token = 0;
    Date deadline;
    // Bundle identifier to application name.
    std::map<std::string, std::string> awaiting;
    // Bundle identifiers in the order of placing.
    std::vector<std::string> placed;
    // Launches that the settlement was created with, repeats included.
    std::int64_t opened = 0;

    bool operator==(const SceneSettlement&) const = default;

    // Awaits every launched application; of two names for one application the later holds.
    [[nodiscard]] static SceneSettlement make(std::string sceneID, std::string sceneName, std::int64_t token,
                                              const std::vector<LaunchedApp>& launched, Date deadline);

    [[nodiscard]] bool isComplete() const { return awaiting.empty(); }
    // From the deadline on.
    [[nodiscard]] bool isExpired(Date now) const { return now >= deadline; }
    [[nodiscard]] std::vector<std::string> pendingBundleIDs() const;
    // In byte order.
    [[nodiscard]] std::vector<std::string> stragglerNames() const;
    [[nodiscard]] SettlementSummary summary() const;

    // True when the application was awaited and now counts as placed; false changes nothing.
    bool markPlaced(const std::string& bundleID);

    // The same scene was applied again meanwhile: a new deadline, and the launched applications are awaited
    // unless already placed.
    void refresh(const std::vector<LaunchedApp>& launched, Date newDeadline);
};

} // namespace vantrel
