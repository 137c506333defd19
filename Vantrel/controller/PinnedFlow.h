// Keeps a pinned layout in place: puts it back when the desk has drifted from it, and gives up when that does
// not help.
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

private:
    void enforce(const Layout& pinned);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    DriftGuard m_driftGuard{requiredObservations};
    // Restores since the desk last stood as pinned.
    int m_strikes = 0;
    bool m_isPaused = false;
    // What the counts are about.
    std::optional<Layout> m_pinned;
};

} // namespace vantrel
