#include "Vantrel/controller/RestoreFollowUp.h"

#include "VantrelCore/windows/WindowSnapshotter.h"

#include <deque>
#include <map>

namespace vantrel::RestoreFollowUp {

std::vector<Moved> moved(const Layout& layout, const std::vector<CurrentWindow>& current,
                         const MatchResult& matched, const RestoreReport& report) {
    std::map<std::string, std::deque<std::size_t>> itemsByApp;
    for (std::size_t i = 0; i < report.items.size(); ++i) {
        if (report.items[i].outcome.kind != RestoreReport::Kind::skipped) {
            itemsByApp[report.items[i].bundleID].push_back(i);
        }
    }
    std::vector<Moved> result;
    for (const auto& pair : matched.pairs) {
        const WindowRecord& saved = layout.windows[pair.saved];
        std::deque<std::size_t>& ofApp = itemsByApp[saved.bundleID];
        if (!ofApp.empty()) {
            result.push_back(
                {saved.bundleID, saved.frame, current[pair.current].handle, ofApp.front(), nullptr});
            ofApp.pop_front();
        }
    }
    return result;
}

std::vector<Moved> landed(std::vector<Moved> moved, const RestoreReport& report) {
    std::erase_if(moved, [&](const Moved& window) {
        return report.items[window.item].outcome.kind == RestoreReport::Kind::failed;
    });
    return moved;
}

void watch(Moved& window) {
    window.userMoves = window.handle.element()->watchUserMoves();
}

std::optional<Rect> visibleFrame(const Moved& window) {
    return WindowSnapshotter::ordinaryFrame(window.handle.element()->read(AttributeGroup::all));
}

bool isDisplaced(const std::optional<Rect>& frame, const Rect& target, RestoreEngine::Sizes sizes) {
    return frame && !RestoreEngine::isReached(frame, target, sizes);
}

} // namespace vantrel::RestoreFollowUp
