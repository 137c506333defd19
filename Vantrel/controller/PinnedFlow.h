// Keeps a pinned layout in place by restoring it when the desk drifts. Gives up after repeated failures, and
// pauses until the displays change when the user asks for another arrangement.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "VantrelCore/windows/DriftGuard.h"

#include <optional>

namespace vantrel {

class PinnedFlow {
public:
    // A drift must be seen this many times in a row, so that a window being dragged is left alone.
    static constexpr std::int64_t requiredObservations = 2;
    // Gives up after this many failed attempts.
    static constexpr int maxStrikes = 3;

    PinnedFlow(ControllerContext& context, RestoreRunner& runner) : m_context(context), m_runner(runner) {}

    // The desk was captured while its active layout is pinned. Called before the capture's pass ends.
    void observe(const Layout& current);

    // A restore has finished. Another arrangement starts a pause; the pinned layout ends it.
    void restored(const RestoreRequest& request);
    // The user wants the layout enforced again, or the displays have settled.
    void endPauseForUser();
    // The stored layouts, or which of them is active or pinned, may have changed.
    void layoutsChanged();

private:
    void enforce(const Layout& pinned);
    // Resets the counts when `pinned` is not the layout they apply to.
    void follow(const std::optional<Layout>& pinned);
    void publish(const std::optional<PinPause>& pause);
    [[nodiscard]] bool asksForAnother(const RestoreRequest& request) const;

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    DriftGuard m_driftGuard{requiredObservations};
    // Restores since the desk last matched the pinned layout.
    int m_strikes = 0;
    // The layout that the counts apply to.
    std::optional<Layout> m_pinned;
};

} // namespace vantrel
