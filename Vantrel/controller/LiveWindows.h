// Finds the live windows for a restore, either by matching the desk against the layout or by known
// identities.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/windows/StrayPlaces.h"
#include "VantrelCore/windows/WindowPairing.h"

#include <vector>

namespace vantrel::LiveWindows {

struct Paired {
    std::vector<LiveWindow> current;
    // Pairs the layout's windows with `current`.
    MatchResult matched;
    // The others of the layout's windows that are there, but cannot be reached.
    std::vector<StrayPlaces::Unreached> unreached = {};
};

// Captures the desk and pairs its windows with the layout's, of which those in `identities` are known.
[[nodiscard]] Paired found(const Layout& layout, const WindowPairing::Known& identities,
                           const DeskCapture::Scope& scope, DeskCapture::Reach reach, Desk& desk,
                           Clock& clock);

// Looks at the windows, one for each of the layout's, so that windows with equal titles are not confused. If
// none of an application's exists any more, its windows are searched for: it may have been restarted.
[[nodiscard]] Paired known(const Layout& layout, const std::vector<WindowID>& windows,
                           const DeskCapture::Scope& scope, Desk& desk);

} // namespace vantrel::LiveWindows
