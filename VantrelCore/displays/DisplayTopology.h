// The displays of the desk, and the desk's identity: its configID is the key in every store.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

using DisplayID = std::uint32_t;

// What macOS says of displays, in three lists that displays() joins.

struct ActiveDisplay {
    DisplayID id = 0;
    bool isBuiltin = false;
    // Global coordinates, origin at the top left of the primary display.
    Rect bounds;
    // Canonical upper-case UUID string; absent when the platform has none.
    std::optional<std::string> uuid;

    bool operator==(const ActiveDisplay&) const = default;
};

// A display as an area for windows. Unlike everywhere else, the rectangles have their origin at the bottom
// left of the primary display and y pointing up, like AppKit screens.
struct Screen {
    std::optional<DisplayID> displayID;
    std::string localizedName;
    Rect frame;
    // Frame less menu bar, panels and docks.
    Rect visibleFrame;

    bool operator==(const Screen&) const = default;
};

// A monitor's identity data: product name and a UUID derived from its EDID. Either may be missing.
struct EdidHint {
    std::optional<std::string> productName;
    std::optional<std::string> edidUUID;

    bool operator==(const EdidHint&) const = default;
};

namespace DisplayTopology {

// The active displays in the platform's order; empty while all of them are asleep.
[[nodiscard]] inline std::vector<DisplayInfo> currentDisplays(DisplayServices& services) {
    return services.displays();
}

[[nodiscard]] std::vector<DisplayInfo> displays(const std::vector<ActiveDisplay>& active,
                                                const std::vector<Screen>& screens,
                                                const std::vector<EdidHint>& edidHints);

// 32 lowercase hexadecimal characters: the first half of the SHA-256 of every display's uuid, position and
// size in whole points. Independent of the list's order and of names.
[[nodiscard]] std::string configID(const std::vector<DisplayInfo>& displays);

// "Alpha Monitor + Beta Monitor + Built-in Display": external displays by name, then built-in ones.
[[nodiscard]] std::string configName(const std::vector<DisplayInfo>& displays);

// The display's uuid, or "display-" and its number when it is inactive or has none.
[[nodiscard]] std::string uuid(DisplayID displayID, const std::vector<ActiveDisplay>& active);

} // namespace DisplayTopology

} // namespace vantrel
