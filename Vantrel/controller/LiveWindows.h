// Which live windows a restore is about: those found on the desk and paired with the layout's, or those that
// are known to be the layout's.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "Vantrel/controller/RestoreRequest.h"
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

// Asks the request's handles, so that no window is taken for another of the same title. The windows of an
// application none of whose handles can be seen any more are looked for: it may have been started anew.
[[nodiscard]] Paired known(const RestoreRequest& request, const DeskCapture::Scope& scope,
                           Accessibility& accessibility, Background& background);

} // namespace vantrel::LiveWindows
