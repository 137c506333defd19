// Finds the live windows for a restore, either by matching the desk against the layout or from known handles.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Background.h"
#include "VantrelCore/windows/WindowMatcher.h"

#include <vector>

namespace vantrel::LiveWindows {

struct Paired {
    std::vector<CurrentWindow> current;
    // Pairs the layout's windows with `current`.
    MatchResult matched;
};

// Captures the desk and matches its windows.
[[nodiscard]] Paired found(const Layout& layout, const DeskCapture::Scope& scope,
                           Accessibility& accessibility, Clock& clock);

// Reads the handles, one for each of the layout's windows, so that windows with equal titles are not
// confused. If none of an application's handles is visible any more, its windows are searched for: it may
// have been restarted.
[[nodiscard]] Paired known(const Layout& layout, const std::vector<AXWindowHandle>& handles,
                           const DeskCapture::Scope& scope, Accessibility& accessibility,
                           Background& background);

} // namespace vantrel::LiveWindows
