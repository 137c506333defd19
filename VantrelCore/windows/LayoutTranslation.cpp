#include "VantrelCore/windows/LayoutTranslation.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vantrel::LayoutTranslation {

namespace {

using Displays = std::vector<DisplayInfo>;

// For each saved display, by index, the present display that stands in for it.
std::vector<const DisplayInfo*> standIns(const Displays& saved, const Displays& present) {
    std::vector<const DisplayInfo*> result(saved.size());
    std::vector<bool> isTaken(present.size());
    const auto assign = [&](auto&& stands) {
        for (std::size_t s = 0; s < saved.size(); ++s) {
            for (std::size_t p = 0; p < present.size() && result[s] == nullptr; ++p) {
                if (!isTaken[p] && stands(saved[s], present[p])) {
                    isTaken[p] = true;
                    result[s] = &present[p];
                }
            }
        }
    };
    assign([](const DisplayInfo& a, const DisplayInfo& b) { return a.uuid == b.uuid; });
    assign([](const DisplayInfo& a, const DisplayInfo& b) { return a.name == b.name && a.frame == b.frame; });
    assign([](const DisplayInfo& a, const DisplayInfo& b) { return a.isBuiltin && b.isBuiltin; });
    assign([](const DisplayInfo&, const DisplayInfo&) { return true; });
    std::ranges::replace(result, nullptr, &present.front());
    return result;
}

void move(WindowRecord& window, const DisplayInfo* from, const DisplayInfo& to) {
    if (from == nullptr) {
        window.frame = DisplayGeometry::clamp(window.frame, to.usableFrame());
    } else if (from->uuid != to.uuid || from->frame != to.frame) {
        const auto translated = [&](const Rect& frame) {
            return DisplayGeometry::clamp(
                RuleApplication::translate(frame, from->usableFrame(), to.usableFrame()), to.usableFrame());
        };
        window.frame = translated(window.frame);
        window.normalFrame = window.normalFrame.transform(translated);
    }
    window.displayUUID = to.uuid;
}

} // namespace

Layout onto(Layout layout, const std::string& configID, const Displays& displays) {
    if (!displays.empty()) {
        const auto present = standIns(layout.displays, displays);
        for (WindowRecord& window : layout.windows) {
            const auto from = std::ranges::find(layout.displays, window.displayUUID, &DisplayInfo::uuid);
            if (from == layout.displays.end()) {
                move(window, nullptr, displays.front());
            } else {
                move(window, &*from, *present[static_cast<std::size_t>(from - layout.displays.begin())]);
            }
        }
    }
    layout.configID = configID;
    layout.displays = displays;
    return layout;
}

} // namespace vantrel::LayoutTranslation
