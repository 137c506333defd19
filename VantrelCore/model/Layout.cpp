#include "VantrelCore/model/Layout.h"

#include "VantrelCore/model/FrameMatching.h"
#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <map>
#include <utility>

namespace vantrel {

namespace {

std::map<std::string_view, std::size_t> windowsPerApplication(const std::vector<WindowRecord>& windows) {
    std::map<std::string_view, std::size_t> counts;
    for (const auto& window : windows) {
        ++counts[window.bundleID];
    }
    return counts;
}

std::string geometryOf(const WindowRecord& window) {
    return fmt::format("{}|{},{},{}x{}", window.bundleID, wholePoints(window.frame.minX()),
                       wholePoints(window.frame.minY()), wholePoints(window.frame.width()),
                       wholePoints(window.frame.height()));
}

std::string placeOf(const WindowRecord& window) {
    std::string place = geometryOf(window);
    if (!window.states.isOrdinary()) {
        place += "|" + nlohmann::json(window.states).dump();
    }
    if (window.desktop) {
        place += fmt::format("|{}", *window.desktop);
    }
    return place;
}

} // namespace

Layout Layout::withoutGhosts() const {
    Layout copy = *this;
    std::erase_if(copy.windows, [](const WindowRecord& window) { return window.isGhost.value_or(false); });
    return copy;
}

Layout Layout::withOtherWindows() const {
    Layout copy = *this;
    std::ranges::move(std::exchange(copy.otherWindows, {}), std::back_inserter(copy.windows));
    return copy;
}

std::vector<std::string> Layout::geometrySignature() const {
    std::vector<std::string> signature;
    signature.reserve(windows.size());
    std::ranges::transform(windows, std::back_inserter(signature), geometryOf);
    std::ranges::sort(signature);
    return signature;
}

std::vector<std::string> Layout::placeSignature() const {
    std::vector<std::string> signature;
    signature.reserve(windows.size() + otherWindows.size());
    std::ranges::transform(windows, std::back_inserter(signature), placeOf);
    std::ranges::transform(otherWindows, std::back_inserter(signature), placeOf);
    std::ranges::sort(signature);
    return signature;
}

bool Layout::hasSamePlaces(const Layout& other) const {
    return configID == other.configID && layoutName == other.layoutName &&
           windows.size() + otherWindows.size() == other.windows.size() + other.otherWindows.size() &&
           placeSignature() == other.placeSignature();
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
    if (!layout.otherWindows.empty()) {
        json["otherWindows"] = layout.otherWindows;
    }
}

void from_json(const nlohmann::json& json, Layout& layout) {
    layout = {.configID = JsonCoding::required<std::string>(json, "configID"),
              .name = JsonCoding::required<std::string>(json, "name"),
              .layoutName = JsonCoding::required<std::string>(json, "layoutName"),
              .displays = JsonCoding::required<std::vector<DisplayInfo>>(json, "displays"),
              .windows = JsonCoding::required<std::vector<WindowRecord>>(json, "windows"),
              .savedAt = JsonCoding::required<Date>(json, "savedAt"),
              .pinned = JsonCoding::optional<bool>(json, "pinned"),
              .otherWindows = JsonCoding::optional<std::vector<WindowRecord>>(json, "otherWindows")
                                  .value_or(std::vector<WindowRecord>{})};
}

} // namespace vantrel
