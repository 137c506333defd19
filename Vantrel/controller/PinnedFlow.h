// Keeps a pinned layout in place: puts it back when the desk has drifted from it. Gives up when that does not
// help, and pauses until the displays change when the user asks for another arrangement.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "VantrelCore/windows/DriftGuard.h"

#include <optional>

namespace vantrel {

class PinnedFlow {
public:
    // A drift must be seen this many times in a row: a window that is just being dragged is left alone.
    static constexpr std::int64_t requiredObservations = 2;
    // After so many restores in vain something else is stronger.
    static constexpr int maxStrikes = 3;

    PinnedFlow(ControllerContext& context, RestoreRunner& runner) : m_context(context), m_runner(runner) {}

    // The desk was captured while its active layout is pinned. Called before the capture's pass ends.
    void observe(const Layout& current);

    // A restore has finished. One of another arrangement pauses, one of the pinned layout ends that.
    void restored(const RestoreRequest& request);
    // The user wants the layout to be kept again, or the displays have settled.
    void endPauseForUser();
    // The stored layouts, or which of them is active or pinned, may have changed.
    void layoutsChanged();

private:
    void enforce(const Layout& pinned);
    // Starts to count anew when it is not the layout that the counts are about.
    void follow(const std::optional<Layout>& pinned);
    void publish(const std::optional<PinPause>& pause);
    [[nodiscard]] bool asksForAnother(const RestoreRequest& request) const;

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    DriftGuard m_driftGuard{requiredObservations};
    // Restores since the desk last stood as pinned.
    int m_strikes = 0;
    // What the counts are about.
    std::optional<Layout> m_pinned;
};

} // namespace vantrel
