#include "VantrelCore/windows/DisplaySwap.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <utility>

namespace vantrel::DisplaySwap {

namespace {

using Displays = std::vector<DisplayInfo>;

std::expected<Pair, std::string> twins(const Displays& displays) {
    std::vector<Pair> found;
    for (auto a = displays.begin(); a != displays.end(); ++a) {
        for (auto b = a + 1; b != displays.end(); ++b) {
            if (a->name == b->name && a->frame.size == b->frame.size) {
                found.emplace_back(*a, *b);
            }
        }
    }
    if (found.size() == 1) {
        return found.front();
    }
    return std::unexpected(std::string(found.empty() ? tr("This desk has no two equal displays.")
                                                     : tr("This desk has more than two equal displays.")) +
                           " " + tr("Name the two to swap; to list them: vantrelctl displays"));
}

void move(WindowRecord& window, const DisplayInfo& from, const DisplayInfo& to) {
    const auto translated = [&](const Rect& frame) {
        return DisplayGeometry::clamp(RuleApplication::translate(frame, from.frame, to.frame),
                                      to.usableFrame());
    };
    window.frame = translated(window.frame);
    window.normalFrame = window.normalFrame.transform(translated);
    window.displayUUID = to.uuid;
}

} // namespace

std::expected<Pair, std::string> choose(const Displays& displays, const std::string& first,
                                        const std::string& second) {
    if (first.empty() && second.empty()) {
        return twins(displays);
    }
    const auto a = DisplayLabels::resolve(first, {displays});
    const auto b = DisplayLabels::resolve(second, {displays});
    if (!a || !b) {
        return std::unexpected(a ? b.error() : a.error());
    }
    if (a->uuid == b->uuid) {
        return std::unexpected(tr("These are the same display."));
    }
    return Pair{*a, *b};
}

Layout swapped(Layout layout, const Pair& displays) {
    const auto& [a, b] = displays;
    for (WindowRecord& window : layout.windows) {
        if (window.displayUUID == a.uuid) {
            move(window, a, b);
        } else if (window.displayUUID == b.uuid) {
            move(window, b, a);
        }
    }
    return layout;
}

} // namespace vantrel::DisplaySwap
