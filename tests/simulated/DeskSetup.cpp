#include "tests/simulated/DeskSetup.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>
#include <fstream>
#include <nlohmann/json.hpp>

namespace vantrel::simulated {

namespace {

SimulatedDisplay displayFrom(const nlohmann::json& json) {
    return {.id = static_cast<DisplayID>(JsonCoding::required<std::int64_t>(json, "id")),
            .uuid = JsonCoding::optional<std::string>(json, "uuid"),
            .name = JsonCoding::required<std::string>(json, "name"),
            .frame = JsonCoding::required<Rect>(json, "frame"),
            .isBuiltin = JsonCoding::optional<bool>(json, "isBuiltin").value_or(false),
            .edidUUID = JsonCoding::optional<std::string>(json, "edidUUID"),
            .menuBar = JsonCoding::optional<double>(json, "menuBar").value_or(0),
            .dock = JsonCoding::optional<double>(json, "dock").value_or(0)};
}

} // namespace

Rect SimulatedDisplay::usableFrame() const {
    return {{frame.minX(), frame.minY() + menuBar},
            {frame.width(), std::max(0.0, frame.height() - menuBar - dock)}};
}

DeskSetup DeskSetup::named(const std::string& name) {
    const std::string file = std::string(VANTREL_DESKS_FOLDER) + "/" + name + ".json";
    try {
        std::ifstream stream(file);
        const auto json = nlohmann::json::parse(stream);
        DeskSetup setup{.name = name, .displays = {}};
        for (const auto& display : json.at("displays")) {
            setup.displays.push_back(displayFrom(display));
        }
        return setup;
    } catch (const std::exception& error) {
        fmt::print(stderr, "cannot read the desk {}: {}\n", file, error.what());
        std::abort();
    }
}

} // namespace vantrel::simulated
