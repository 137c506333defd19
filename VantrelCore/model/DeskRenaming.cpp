#include "VantrelCore/model/DeskRenaming.h"

#include <algorithm>

namespace vantrel::DeskRenaming {

std::map<std::string, std::string> counterparts(const Displays& from, const Displays& to) {
    std::map<std::string, std::string> result;
    for (const DisplayInfo& display : from) {
        const auto other = std::ranges::find(to, display.frame, &DisplayInfo::frame);
        if (other != to.end()) {
            result[display.uuid] = other->uuid;
        }
    }
    return result;
}

Layout renamed(Layout layout, const std::string& configID, const Displays& displays) {
    const auto present = counterparts(layout.displays, displays);
    for (auto* const windows : {&layout.windows, &layout.otherWindows}) {
        for (WindowRecord& window : *windows) {
            const auto found = present.find(window.displayUUID);
            if (found != present.end()) {
                window.displayUUID = found->second;
            }
        }
    }
    layout.configID = configID;
    layout.displays = displays;
    return layout;
}

} // namespace vantrel::DeskRenaming
