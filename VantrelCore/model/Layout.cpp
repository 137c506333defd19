#include "VantrelCore/model/Layout.h"

#include "VantrelCore/model/FrameMatching.h"
#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>

namespace vantrel {

namespace {

std::map<std::string_view, std::size_t> windowsPerApplication(const std::vector<WindowRecord>& windows) {
    std::map<std::string_view, std::size_t> counts;
    for (const auto& window : windows) {
        ++counts[window.bundleID];
    }
    return counts;
}

} // namespace

Layout Layout::withoutGhosts() const {
    Layout copy = *this;
    std::erase_if(copy.windows, [](const WindowRecord& window) { return window.isGhost.value_or(false); });
    return copy;
}

std::vector<std::string> Layout::geometrySignature() const {
    std::vector<std::string> signature;
    signature.reserve(windows.size());
    for (const auto& window : windows) {
        signature.push_back(fmt::format("{}|{},{},{}x{}", window.bundleID, wholePoints(window.frame.minX()),
                                        wholePoints(window.frame.minY()), wholePoints(window.frame.width()),
                                        wholePoints(window.frame.height())));
    }
    std::ranges::sort(signature);
    return signature;
}

bool Layout::isEquivalent(const Layout& other) const {
    return configID == other.configID && layoutName == other.layoutName &&
           windows.size() == other.windows.size() && geometrySignature() == other.geometrySignature();
}

bool Layout::geometryMatches(const Layout& other, double tolerance) const {
    return configID == other.configID && layoutName == other.layoutName &&
           windowsPerApplication(windows) == windowsPerApplication(other.windows) &&
           FrameMatching::windowsWithoutCounterpart(windows, other.windows, tolerance) == 0;
}

void to_json(nlohmann::json& json, const Layout& layout) {
    json = {{"configID", layout.configID},
            {"name", layout.name},
            {"layoutName", layout.layoutName},
            {"displays", layout.displays},
            {"windows", layout.windows}};
    JsonCoding::put(json, "savedAt", layout.savedAt);
    JsonCoding::put(json, "pinned", layout.pinned);
}

void from_json(const nlohmann::json& json, Layout& layout) {
    layout = {.configID = JsonCoding::required<std::string>(json, "configID"),
              .name = JsonCoding::required<std::string>(json, "name"),
              .layoutName = JsonCoding::required<std::string>(json, "layoutName"),
              .displays = JsonCoding::required<std::vector<DisplayInfo>>(json, "displays"),
              .windows = JsonCoding::required<std::vector<WindowRecord>>(json, "windows"),
              .savedAt = JsonCoding::required<Date>(json, "savedAt"),
              .pinned = JsonCoding::optional<bool>(json, "pinned")};
}

} // namespace vantrel
