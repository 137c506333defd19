#include "VantrelCore/windows/RuleApplication.h"

#include "VantrelCore/displays/DisplayGeometry.h"

#include <algorithm>

namespace vantrel::RuleApplication {

namespace {

const DisplayInfo* displayOf(const std::string& uuid, const std::vector<DisplayInfo>& displays) {
    const auto found = std::ranges::find(displays, uuid, &DisplayInfo::uuid);
    return found == displays.end() ? nullptr : &*found;
}

void keepOnDisplay(const std::string& bundleID, const DisplayInfo& target, Layout& layout) {
    for (WindowRecord& window : layout.windows) {
        if (window.bundleID != bundleID || window.displayUUID == target.uuid) {
            continue;
        }
        const DisplayInfo* source = displayOf(window.displayUUID, layout.displays);
        window.frame = source != nullptr ? translate(window.frame, source->frame, target.frame)
                                         : DisplayGeometry::clamp(window.frame, target.frame);
        window.displayUUID = target.uuid;
    }
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

Rect translate(const Rect& rect, const Rect& from, const Rect& to) {
    if (from.isEmpty()) {
        return rect;
    }
    const double scaleX = to.width() / from.width();
    const double scaleY = to.height() / from.height();
    return {
        {to.minX() + (rect.minX() - from.minX()) * scaleX, to.minY() + (rect.minY() - from.minY()) * scaleY},
        {rect.width() * scaleX, rect.height() * scaleY}};
}

Layout apply(const std::vector<AppRule>& rules, Layout layout, const std::vector<DisplayInfo>& displays) {
    const std::set<std::string> ignored = ignoredBundleIDs(rules);
    std::erase_if(layout.windows,
                  [&](const WindowRecord& window) { return ignored.contains(window.bundleID); });
    for (const AppRule& rule : rules) {
        const auto* forced = std::get_if<AppRule::ForceDisplay>(&rule.action);
        const DisplayInfo* target = forced != nullptr ? displayOf(forced->uuid, displays) : nullptr;
        if (target != nullptr) {
            keepOnDisplay(rule.bundleID, *target, layout);
        }
    }
    return layout;
}

} // namespace vantrel::RuleApplication
