// Which live windows a restore is about: those found on the desk and paired with the layout's, or those that
// are known to be the layout's.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Background.h"
#include "VantrelCore/windows/WindowMatcher.h"

#include <vector>

namespace vantrel::LiveWindows {

struct Paired {
    std::vector<CurrentWindow> current;
    // Between the layout's windows and `current`.
    MatchResult matched;
};

// Captures the desk.
[[nodiscard]] Paired found(const Layout& layout, const DeskCapture::Scope& scope,
                           Accessibility& accessibility, Clock& clock);

// Asks the handles, one for each of the layout's windows, so that no window is taken for another of the same
// title. The windows of an application none of whose handles can be seen any more are looked for: it may have
// been started anew.
[[nodiscard]] Paired known(const Layout& layout, const std::vector<AXWindowHandle>& handles,
                           const DeskCapture::Scope& scope, Accessibility& accessibility,
                           Background& background);

} // namespace vantrel::LiveWindows
