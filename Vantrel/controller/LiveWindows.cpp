#include "Vantrel/controller/LiveWindows.h"

#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace vantrel::LiveWindows {

namespace {

// In seconds. A slower capture waited for an application that does not respond; another one would wait as
// long again.
constexpr double promptCapture = 0.5;

std::vector<StrayPlaces::Unreached> unreached(const std::vector<WindowRecord>& saved,
                                              const WindowPairing::Known& identities,
                                              const std::vector<std::size_t>& unmatched,
                                              const std::vector<LiveWindow>& elsewhere) {
    if (unmatched.empty() || elsewhere.empty()) {
        return {};
    }
    std::vector<WindowRecord> records;
    WindowPairing::Known known;
    for (const std::size_t index : unmatched) {
        records.push_back(saved[index]);
        if (!identities.empty()) {
            known.push_back(identities[index]);
        }
    }
    std::vector<StrayPlaces::Unreached> found;
    for (const auto& pair : WindowPairing::pair(records, known, elsewhere).pairs) {
        const LiveWindow& window = elsewhere[pair.current];
        found.push_back({unmatched[pair.saved], window.id, window.record.frame});
    }
    return found;
}

Paired capture(const std::vector<WindowRecord>& saved, const WindowPairing::Known& identities,
               const DeskCapture::Scope& scope, DeskCapture::Reach reach, Desk& desk) {
    const DeskSnapshot snapshot = desk.capture(scope.filter);
    Paired result{.current = DeskCapture::windows(snapshot, scope, reach), .matched = {}};
    result.matched = WindowPairing::pair(saved, identities, result.current);
    if (reach == DeskCapture::Reach::every) {
        result.unreached = unreached(saved, identities, result.matched.unmatchedSaved,
                                     VisibleWindows::elsewhere(snapshot, scope.displays));
    }
    return result;
}

} // namespace

// A window that moves while the desk is being read can appear to be off screen. So if windows are missing, a
// second capture is taken and the better one is used.
Paired found(const Layout& layout, const WindowPairing::Known& identities, const DeskCapture::Scope& scope,
             DeskCapture::Reach reach, Desk& desk, Clock& clock) {
    const double start = clock.monotonicSeconds();
    Paired first = capture(layout.windows, identities, scope, reach, desk);
    if (first.matched.unmatchedSaved.empty() || clock.monotonicSeconds() - start >= promptCapture) {
        return first;
    }
    Paired second = capture(layout.windows, identities, scope, reach, desk);
    return second.matched.pairs.size() > first.matched.pairs.size() ? second : first;
}

Paired known(const Layout& layout, const std::vector<WindowID>& windows, const DeskCapture::Scope& scope,
             Desk& desk) {
    const std::vector<WindowRecord>& saved = layout.windows;
    const auto seen = desk.look(windows);
    const auto frameOf = [&](std::size_t i) {
        return seen[i] && (seen[i]->isReachable || seen[i]->isOnScreen)
                   ? VisibleWindows::placedFrame(*seen[i])
                   : std::nullopt;
    };
    std::set<std::string> livingApps;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (frameOf(i)) {
            livingApps.insert(saved[i].bundleID);
        }
    }
    Paired result;
    std::vector<std::size_t> lost;
    std::vector<WindowRecord> lostRecords;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (const auto frame = frameOf(i)) {
            result.matched.pairs.push_back({i, result.current.size(), Pairing::known});
            result.current.push_back({saved[i], windows[i], !seen[i]->states.isMinimized});
            WindowRecord& record = result.current.back().record;
            record.frame = *frame;
            record.states = seen[i]->states;
            record.desktop = seen[i]->desktop;
        } else if (livingApps.contains(saved[i].bundleID)) {
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
    Paired again = capture(lostRecords, {}, scope, DeskCapture::Reach::visible, desk);
    for (const auto& pair : again.matched.pairs) {
        result.matched.pairs.push_back({lost[pair.saved], result.current.size(), pair.by});
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
