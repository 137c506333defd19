#include "Vantrel/controller/PinnedFlow.h"

#include <fmt/format.h>

namespace vantrel {

void PinnedFlow::observe(const Layout& current) {
    const auto pinned = m_context.layoutToRestore();
    if (!pinned) {
        return;
    }
    if (m_pinned != pinned) {
        m_pinned = pinned;
        m_driftGuard.reset();
        m_strikes = 0;
        m_isPaused = false;
    }
    const bool hasDrifted = m_driftGuard.observe(current, *pinned);
    if (hasDrifted) {
        m_context.afterPass([this, pinned] { enforce(*pinned); });
    } else if (m_driftGuard.driftCount() == 0) {
        m_strikes = 0;
        m_isPaused = false;
    }
}

void PinnedFlow::enforce(const Layout& pinned) {
    // What the user asked for meanwhile comes first; a drift that is left is seen again.
    if (m_isPaused || m_context.restoreInFlight) {
        return;
    }
    if (m_strikes == maxStrikes) {
        m_isPaused = true;
        m_context.log("pinned drift persists after 3 enforcements, pausing until the layout changes");
        return;
    }
    ++m_strikes;
    m_context.log(fmt::format("pinned drift: enforcing {} windows for {} (attempt {})", pinned.windows.size(),
                              pinned.name, m_strikes));
    m_runner.perform(
        {.layout = pinned, .displays = m_context.state().displays, .reason = "pinned enforcement"});
}

} // namespace vantrel
