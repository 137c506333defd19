// The wallpapers of the simulated desk.
#pragma once

#include "VantrelCore/ports/DesktopPictures.h"

#include <map>
#include <set>
#include <string>

namespace vantrel::simulated {

class SimulatedPictures final : public DesktopPictures {
public:
    [[nodiscard]] std::optional<std::string> picture(const DisplayInfo& display) override {
        const auto found = shown.find(display.uuid);
        return found == shown.end() ? std::nullopt : std::optional("file://" + found->second);
    }

    bool setPicture(const DisplayInfo& display, const std::string& picture) override {
        if (missing.contains(picture)) {
            return false;
        }
        const std::string path = picture.starts_with("file://") ? picture.substr(7) : picture;
        for (auto& [uuid, current] : shown) {
            if (sharesOnePicture || uuid == display.uuid) {
                current = path;
            }
        }
        return true;
    }

    // Paths by display UUID.
    std::map<std::string, std::string> shown;
    // Files that do not exist.
    std::set<std::string> missing;
    // As on desktops with one picture for all displays.
    bool sharesOnePicture = false;
};

} // namespace vantrel::simulated
