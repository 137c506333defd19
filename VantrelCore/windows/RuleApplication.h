// Applies the user's per-application rules to captures and to layouts about to be restored.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Layout.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel::RuleApplication {

// Applications that are neither captured nor restored.
[[nodiscard]] std::set<std::string> ignoredBundleIDs(const std::vector<AppRule>& rules);

// Applications whose windows are placed after all others.
[[nodiscard]] std::set<std::string> restoreLastBundleIDs(const std::vector<AppRule>& rules);

// The display that a rule assigns to the application; the first such rule wins. None without one.
[[nodiscard]] std::optional<std::string> forcedDisplayUUID(const std::string& bundleID,
                                                           const std::vector<AppRule>& rules);

// The rectangle with the same relative place and size in `to` as it has in `from`; unchanged when `from` is
// empty.
[[nodiscard]] Rect translate(const Rect& rect, const Rect& from, const Rect& to);

// The layout without the windows of ignored applications, and with windows moved to the display that a rule
// assigns. A rule whose display is not among `displays` changes nothing. A window whose own display is
// unknown to the layout keeps its size and is clamped to the rule's display.
[[nodiscard]] Layout apply(const std::vector<AppRule>& rules, Layout layout,
                           const std::vector<DisplayInfo>& displays);

} // namespace vantrel::RuleApplication
