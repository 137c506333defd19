#include "VantrelCore/windows/RuleApplication.h"

#include "VantrelCore/displays/DisplayGeometry.h"

#include <algorithm>

namespace vantrel::RuleApplication {

namespace {

const DisplayInfo* displayOf(const std::string& uuid, const std::vector<DisplayInfo>& displays) {
    const auto found = std::ranges::find(displays, uuid, &DisplayInfo::uuid);
    return found == displays.end() ? nullptr : &*found;
}

void moveTo(const DisplayInfo& target, const std::vector<DisplayInfo>& savedDisplays, WindowRecord& window) {
    const DisplayInfo* source = displayOf(window.displayUUID, savedDisplays);
    window.frame = source != nullptr ? translate(window.frame, source->frame, target.frame)
                                     : DisplayGeometry::clamp(window.frame, target.frame);
    // It belongs to the display that the window leaves.
    window.normalFrame.reset();
    window.displayUUID = target.uuid;
}

} // namespace

std::set<std::string> ignoredBundleIDs(const std::vector<AppRule>& rules) {
    std::set<std::string> result;
    for (const AppRule& rule : rules) {
        if (std::holds_alternative<AppRule::Ignore>(rule.action)) {
            result.insert(rule.bundleID);
        }
    }
    return result;
}

std::set<std::string> restoreLastBundleIDs(const std::vector<AppRule>& rules) {
    std::set<std::string> result;
    for (const AppRule& rule : rules) {
        if (rule.restoreLast.value_or(false)) {
            result.insert(rule.bundleID);
        }
    }
    return result;
}

std::optional<std::string> forcedDisplayUUID(const std::string& bundleID, const std::vector<AppRule>& rules) {
    for (const AppRule& rule : rules) {
        const auto* forced = std::get_if<AppRule::ForceDisplay>(&rule.action);
        // A rule without a display moves nothing; it only carries `restoreLast`.
        if (forced != nullptr && rule.bundleID == bundleID && !forced->uuid.empty()) {
            return forced->uuid;
        }
    }
    return std::nullopt;
}

Rect translate(const Rect& rect, const Rect& from, const Rect& to) {
    if (from.isEmpty()) {
        return rect;
    }
    return {{to.minX() + (rect.minX() - from.minX()) / from.width() * to.width(),
             to.minY() + (rect.minY() - from.minY()) / from.height() * to.height()},
            {rect.width() / from.width() * to.width(), rect.height() / from.height() * to.height()}};
}

Layout apply(const std::vector<AppRule>& rules, Layout layout, const std::vector<DisplayInfo>& displays) {
    const std::set<std::string> ignored = ignoredBundleIDs(rules);
    std::erase_if(layout.windows,
                  [&](const WindowRecord& window) { return ignored.contains(window.bundleID); });
    for (WindowRecord& window : layout.windows) {
        const auto forced = forcedDisplayUUID(window.bundleID, rules);
        const DisplayInfo* target = forced ? displayOf(*forced, displays) : nullptr;
        if (target != nullptr && window.displayUUID != target->uuid) {
            moveTo(*target, layout.displays, window);
        }
    }
    return layout;
}

} // namespace vantrel::RuleApplication
