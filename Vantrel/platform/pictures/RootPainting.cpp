#include "Vantrel/platform/pictures/RootPainting.h"

#include <limits>
#include <nlohmann/json.hpp>

namespace vantrel {

namespace {

std::uint32_t pixmapAt(const nlohmann::json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number_unsigned()) {
        return 0;
    }
    const auto number = found->get<std::uint64_t>();
    return number <= std::numeric_limits<std::uint32_t>::max() ? static_cast<std::uint32_t>(number) : 0;
}

} // namespace

RootPainting RootPainting::parse(std::string_view note) {
    RootPainting result;
    const auto json = nlohmann::json::parse(note, nullptr, false);
    if (!json.is_object()) {
        return result;
    }
    result.pixmap = pixmapAt(json, "pixmap");
    result.base = pixmapAt(json, "base");
    const auto pictures = json.find("pictures");
    if (pictures != json.end() && pictures->is_object()) {
        for (const auto& [display, picture] : pictures->items()) {
            if (picture.is_string()) {
                result.pictures[display] = picture.get<std::string>();
            }
        }
    }
    return result;
}

std::string RootPainting::note() const {
    return nlohmann::json{{"pixmap", pixmap}, {"base", base}, {"pictures", pictures}}.dump(
        -1, ' ', false, nlohmann::json::error_handler_t::replace);
}

} // namespace vantrel
