// Quietly tells the user when the windows have moved away from the scene last applied on this desk.
#pragma once

#include "Vantrel/controller/ControllerContext.h"

#include <optional>
#include <string>

namespace vantrel {

class NudgeFlow {
public:
    // In points.
    static constexpr double driftTolerance = 24;

    explicit NudgeFlow(ControllerContext& context) : m_context(context) {}

    // The desk as it was just captured.
    void checkSceneDrift(const Layout& fresh);
    // What was told does not hold any more: a scene was applied, or the desk is another one.
    void clear();
    // The user has seen it: this drift is not told again.
    void dismissDriftNudge();

private:
    // None when it has not drifted.
    [[nodiscard]] std::optional<DriftNudgeInfo> nudge(const Scene& scene, const Layout& fresh) const;
    void publish(const std::optional<DriftNudgeInfo>& nudge);

    ControllerContext& m_context;
    // Desk and scene of a drift that was dismissed, until the windows are back or a scene is applied.
    std::optional<std::string> m_dismissedDriftKey;
};

} // namespace vantrel
