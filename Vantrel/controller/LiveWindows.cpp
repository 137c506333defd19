#include "Vantrel/controller/LiveWindows.h"

#include "Vantrel/controller/PerApplication.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace vantrel::LiveWindows {

namespace {

// In seconds. A slower capture waited for an application that does not respond; another one would wait as
// long again.
constexpr double promptCapture = 0.5;

Paired capture(const std::vector<WindowRecord>& saved, const DeskCapture::Scope& scope,
               Accessibility& accessibility) {
    Paired result{.current = DeskCapture::windows(accessibility, scope), .matched = {}};
    result.matched = RestoreEngine::match(saved, result.current);
    return result;
}

// For each window, whether it is visible.
std::vector<char> whichAreVisible(const Layout& layout, const std::vector<AXWindowHandle>& handles,
                                  Background& background) {
    std::vector<RestoreFollowUp::Moved> windows;
    for (std::size_t i = 0; i < handles.size(); ++i) {
        const WindowRecord& saved = layout.windows[i];
        windows.push_back({saved.bundleID, saved.frame, handles[i], i});
    }
    // Not vector<bool>, whose elements share bytes: each worker writes its own element.
    std::vector<char> areVisible(windows.size());
    PerApplication::forEach(windows, background, [&](std::size_t i) {
        areVisible[i] = RestoreFollowUp::visibleFrame(windows[i]) ? 1 : 0;
    });
    return areVisible;
}

} // namespace

// A window that moves while the desk is being read can appear to be off screen. So if windows are missing, a
// second capture is taken and the better one is used.
Paired found(const Layout& layout, const DeskCapture::Scope& scope, Accessibility& accessibility,
             Clock& clock) {
    const double start = clock.monotonicSeconds();
    Paired first = capture(layout.windows, scope, accessibility);
    if (first.matched.unmatchedSaved.empty() || clock.monotonicSeconds() - start >= promptCapture) {
        return first;
    }
    Paired second = capture(layout.windows, scope, accessibility);
    return second.matched.pairs.size() > first.matched.pairs.size() ? second : first;
}

Paired known(const Layout& layout, const std::vector<AXWindowHandle>& handles,
             const DeskCapture::Scope& scope, Accessibility& accessibility, Background& background) {
    const std::vector<WindowRecord>& saved = layout.windows;
    const auto areVisible = whichAreVisible(layout, handles, background);
    std::set<std::string> visibleApps;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (areVisible[i] != 0) {
            visibleApps.insert(saved[i].bundleID);
        }
    }
    Paired result;
    std::vector<std::size_t> lost;
    std::vector<WindowRecord> lostRecords;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (areVisible[i] != 0) {
            result.matched.pairs.push_back({i, result.current.size()});
            result.current.push_back({saved[i], handles[i]});
        } else if (visibleApps.contains(saved[i].bundleID)) {
            result.matched.unmatchedSaved.push_back(i);
        } else {
            lost.push_back(i);
            lostRecords.push_back(saved[i]);
        }
    }
    if (lost.empty()) {
        return result;
    }
    // Only applications without any known window are in the list, so no window is paired twice.
    Paired again = capture(lostRecords, scope, accessibility);
    for (const auto& pair : again.matched.pairs) {
        result.matched.pairs.push_back({lost[pair.saved], result.current.size()});
        result.current.push_back(std::move(again.current[pair.current]));
    }
    for (const std::size_t index : again.matched.unmatchedSaved) {
        result.matched.unmatchedSaved.push_back(lost[index]);
    }
    std::ranges::sort(result.matched.pairs);
    std::ranges::sort(result.matched.unmatchedSaved);
    return result;
}

} // namespace vantrel::LiveWindows
