#include "VantrelCore/displays/DisplayNaming.h"

#include <algorithm>
#include <string_view>

namespace vantrel::DisplayNaming {

namespace {

std::string suffix(std::size_t index, std::size_t count) {
    if (count == 2) {
        return index == 0 ? "left" : "right";
    }
    if (count == 3) {
        return index == 0 ? "left" : index == 1 ? "center" : "right";
    }
    return std::to_string(index + 1);
}

} // namespace

std::map<std::string, std::string> labels(const std::vector<DisplayInfo>& displays) {
    std::map<std::string_view, std::vector<const DisplayInfo*>> groups;
    for (const auto& display : displays) {
        groups[display.name].push_back(&display);
    }
    std::map<std::string, std::string> result;
    for (auto& [name, group] : groups) {
        if (group.size() < 2) {
            continue;
        }
        std::ranges::stable_sort(group, {}, [](const DisplayInfo* display) { return display->frame.minX(); });
        for (std::size_t i = 0; i < group.size(); ++i) {
            result[group[i]->uuid] = std::string(name) + " (" + suffix(i, group.size()) + ")";
        }
    }
    return result;
}

} // namespace vantrel::DisplayNaming
