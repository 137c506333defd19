#include "VantrelCore/studio/TakenFromDesk.h"

#include "VantrelCore/windows/WindowMatcher.h"

#include <algorithm>

namespace vantrel::TakenFromDesk {

std::vector<WindowRecord> all(const SceneDraft& draft, const std::vector<WindowRecord>& captured) {
    auto records = captured;
    std::int64_t last = -1;
    for (const WindowRecord& record : captured) {
        last = std::max(last, record.zOrder);
    }
    const auto isOpen = [&](const std::string& bundleID) {
        return std::ranges::find(captured, bundleID, &WindowRecord::bundleID) != captured.end();
    };
    for (const SceneDraft::BoxID id : draft.stack()) {
        WindowRecord slot = draft.box(id)->record;
        if (slot.isGhost.value_or(false) && !isOpen(slot.bundleID)) {
            slot.zOrder = ++last;
            records.push_back(std::move(slot));
        }
    }
    return records;
}

std::map<SceneDraft::BoxID, Rect> frames(const SceneDraft& draft, const std::set<SceneDraft::BoxID>& boxes,
                                         const std::vector<WindowRecord>& captured) {
    std::vector<WindowIdentity> saved;
    for (const SceneDraft::Box& box : draft.boxes()) {
        saved.emplace_back(box.record);
    }
    std::vector<WindowIdentity> open;
    for (const WindowRecord& record : captured) {
        open.emplace_back(record);
    }
    std::map<SceneDraft::BoxID, Rect> found;
    for (const auto& pair : WindowMatcher::match(saved, open).pairs) {
        if (const auto id = draft.boxes()[pair.saved].id; boxes.contains(id)) {
            found[id] = captured[pair.current].frame;
        }
    }
    return found;
}

} // namespace vantrel::TakenFromDesk
