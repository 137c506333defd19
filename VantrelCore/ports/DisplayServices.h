// Port: the connected displays as the platform reports them. VantrelCore/displays turns this into
// DisplayInfo.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

using DisplayID = std::uint32_t;

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

// Used on the main thread.
class DisplayServices {
public:
    DisplayServices() = default;
    DisplayServices(const DisplayServices&) = delete;
    DisplayServices& operator=(const DisplayServices&) = delete;
    virtual ~DisplayServices() = default;

    // In the platform's order; empty when all displays are asleep or the platform does not respond.
    [[nodiscard]] virtual std::vector<ActiveDisplay> activeDisplays() = 0;
    [[nodiscard]] virtual std::vector<Screen> screens() = 0;
    [[nodiscard]] virtual std::vector<EdidHint> edidHints() = 0;

    // Calls `handler` for every reconfiguration event, begin or end, on any thread; an empty function stops
    // the calls. A query that changes nothing must not trigger one.
    virtual void setReconfigurationHandler(std::function<void()> handler) = 0;
};

} // namespace vantrel
