#include "Vantrel/controller/RestoreFollowUp.h"

#include <deque>
#include <map>

namespace vantrel::RestoreFollowUp {

std::vector<Landed> landed(const Layout& layout, const std::vector<CurrentWindow>& current,
                           const RestoreReport& report) {
    using Kind = RestoreReport::Kind;
    std::map<std::string, std::deque<Kind>> outcomes;
    for (const auto& item : report.items) {
        if (item.outcome.kind != Kind::skipped) {
            outcomes[item.bundleID].push_back(item.outcome.kind);
        }
    }
    std::vector<Landed> result;
    for (const auto& pair : RestoreEngine::match(layout.windows, current).pairs) {
        const WindowRecord& saved = layout.windows[pair.saved];
        std::deque<Kind>& ofApp = outcomes[saved.bundleID];
        if (ofApp.empty()) {
            continue;
        }
        if (ofApp.front() != Kind::failed) {
            result.push_back({saved.bundleID, saved.frame, current[pair.current].handle});
        }
        ofApp.pop_front();
    }
    return result;
}

bool isDisplaced(const std::optional<Rect>& frame, const Rect& target, RestoreEngine::Sizes sizes) {
    return frame && !RestoreEngine::isReached(frame, target, sizes);
}

} // namespace vantrel::RestoreFollowUp
