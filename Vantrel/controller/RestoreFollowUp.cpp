#include "Vantrel/controller/RestoreFollowUp.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>

namespace vantrel::RestoreFollowUp {

std::vector<Kept> kept(const RestoreReport& report) {
    using Kind = RestoreReport::Kind;
    std::vector<Kept> result;
    for (std::size_t i = 0; i < report.items.size(); ++i) {
        const auto kind = report.items[i].outcome.kind;
        const auto& move = report.items[i].move;
        if (!move || kind == Kind::skipped) {
            continue;
        }
        result.push_back({.window = move->window,
                          .target = move->target,
                          .place = move->place,
                          .item = i,
                          .name = fmt::format("{} \"{}\"", report.items[i].appName, report.items[i].title)});
        if (kind == Kind::failed) {
            result.back().failedAt = move->achieved.value_or(move->from);
        }
    }
    return result;
}

std::vector<WindowID> windowsOf(const std::vector<Kept>& kept) {
    std::vector<WindowID> windows;
    windows.reserve(kept.size());
    std::ranges::transform(kept, std::back_inserter(windows), &Kept::window);
    return windows;
}

bool isDisplaced(const std::optional<Rect>& frame, const Rect& target, RestoreEngine::Sizes sizes) {
    return frame && !RestoreEngine::isReached(frame, target, sizes);
}

} // namespace vantrel::RestoreFollowUp
