#include "Vantrel/controller/RestoreFollowUp.h"

#include <algorithm>
#include <iterator>

namespace vantrel::RestoreFollowUp {

std::vector<Landed> landed(const RestoreReport& report) {
    using Kind = RestoreReport::Kind;
    std::vector<Landed> result;
    for (std::size_t i = 0; i < report.items.size(); ++i) {
        const auto& item = report.items[i];
        const bool hasLanded = item.outcome.kind == Kind::restored || item.outcome.kind == Kind::retried;
        if (hasLanded && item.move) {
            result.push_back({.window = item.move->window, .target = item.move->target, .item = i});
        }
    }
    return result;
}

std::vector<WindowID> windowsOf(const std::vector<Landed>& landed) {
    std::vector<WindowID> windows;
    windows.reserve(landed.size());
    std::ranges::transform(landed, std::back_inserter(windows), &Landed::window);
    return windows;
}

bool isDisplaced(const std::optional<Rect>& frame, const Rect& target, RestoreEngine::Sizes sizes) {
    return frame && !RestoreEngine::isReached(frame, target, sizes);
}

} // namespace vantrel::RestoreFollowUp
