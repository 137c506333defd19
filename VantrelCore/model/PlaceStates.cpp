#include "VantrelCore/model/PlaceStates.h"

#include "VantrelCore/model/JsonCoding.h"

#include <string>

namespace vantrel {

namespace {

struct NamedState {
    const char* name;
    bool PlaceStates::* state;
};

constexpr NamedState namedStates[] = {
    {"minimized", &PlaceStates::isMinimized},
    {"fullscreen", &PlaceStates::isFullscreen},
    {"maximizedHorizontally", &PlaceStates::isMaximizedHorizontally},
    {"maximizedVertically", &PlaceStates::isMaximizedVertically},
    {"shaded", &PlaceStates::isShaded},
    {"above", &PlaceStates::isAbove},
    {"onAllDesktops", &PlaceStates::isOnAllDesktops},
};

} // namespace

void to_json(nlohmann::json& json, const PlaceStates& states) {
    json = nlohmann::json::array();
    for (const auto& [name, state] : namedStates) {
        if (states.*state) {
            json.push_back(name);
        }
    }
}

void from_json(const nlohmann::json& json, PlaceStates& states) {
    states = {};
    for (const std::string& text : JsonCoding::value<std::vector<std::string>>(json)) {
        for (const auto& [name, state] : namedStates) {
            if (text == name) {
                states.*state = true;
            }
        }
    }
}

} // namespace vantrel
