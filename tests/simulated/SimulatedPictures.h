// The pictures behind the windows of the simulated desk.
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
            if (isOneForAll || uuid == display.uuid) {
                current = path;
            }
        }
        return true;
    }

    // By display UUID, paths.
    std::map<std::string, std::string> shown;
    // Files that are not there.
    std::set<std::string> missing;
    // As on desktops that know one picture only.
    bool isOneForAll = false;
};

} // namespace vantrel::simulated
