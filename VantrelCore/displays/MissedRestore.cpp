#include "VantrelCore/displays/MissedRestore.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <tuple>

namespace vantrel::MissedRestore {

namespace {

using Place = std::tuple<double, double, double, double>;

// The sorted places of each process's windows.
std::map<std::int32_t, std::vector<Place>> placesByProcess(const std::vector<WindowOutline>& windows) {
    std::map<std::int32_t, std::vector<Place>> places;
    for (const auto& [pid, frame] : windows) {
        places[pid].emplace_back(frame.minX(), frame.minY(), frame.width(), frame.height());
    }
    for (auto& [pid, frames] : places) {
        std::ranges::sort(frames);
    }
    return places;
}

} // namespace

bool hasAnyMoved(const std::vector<WindowOutline>& before, const std::vector<WindowOutline>& now) {
    const auto former = placesByProcess(before);
    for (const auto& [pid, places] : placesByProcess(now)) {
        const auto found = former.find(pid);
        if (found != former.end() && !std::ranges::includes(places, found->second) &&
            !std::ranges::includes(found->second, places)) {
            return true;
        }
    }
    return false;
}

Verdict decide(const Situation& situation) {
    if (!situation.isSameDesk) {
        return Verdict::drop;
    }
    if (situation.isAway || !situation.canMoveWindows) {
        return Verdict::wait;
    }
    const bool canCompare = situation.before && situation.now;
    return canCompare && hasAnyMoved(*situation.before, *situation.now) ? Verdict::drop : Verdict::makeUp;
}

} // namespace vantrel::MissedRestore
