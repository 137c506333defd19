// Quietly notifies the user when windows have moved away from the scene last applied on this desk.
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

    // `fresh` is the desk as just captured.
    void checkSceneDrift(const Layout& fresh);
    // Removes the notice if the user does not want it.
    void settingsChanged();
    // Removes the notice: a scene was applied, or the desk changed.
    void clear();
    // The user dismissed the notice; the same drift is not reported again.
    void dismissDriftNudge();

private:
    // None when the desk has not drifted.
    [[nodiscard]] std::optional<DriftNudgeInfo> nudge(const Scene& scene, const Layout& fresh) const;
    void publish(const std::optional<DriftNudgeInfo>& nudge);

    ControllerContext& m_context;
    // Desk and scene of a dismissed drift, until the windows are back or a scene is applied.
    std::optional<std::string> m_dismissedDriftKey;
};

} // namespace vantrel
