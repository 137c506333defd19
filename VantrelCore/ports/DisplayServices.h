// Port: the connected displays as the platform reports them. VantrelCore/displays makes DisplayInfo of this.
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
    // Upper-case canonical UUID text, absent when the platform knows none.
    std::optional<std::string> uuid;

    bool operator==(const ActiveDisplay&) const = default;
};

// A display as an area to put windows on. Unlike everywhere else, the rectangles have their origin at the
// bottom left of the primary display and y growing upwards, as AppKit screens do.
struct Screen {
    std::optional<DisplayID> displayID;
    std::string localizedName;
    Rect frame;
    // Frame less menu bar, panels and docks.
    Rect visibleFrame;

    bool operator==(const Screen&) const = default;
};

// A monitor's identity data: product name and a UUID made from its EDID. Either may be missing.
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

    // In the platform's order; empty when every display is asleep or the platform does not answer.
    [[nodiscard]] virtual std::vector<ActiveDisplay> activeDisplays() = 0;
    [[nodiscard]] virtual std::vector<Screen> screens() = 0;
    [[nodiscard]] virtual std::vector<EdidHint> edidHints() = 0;

    // Calls `handler` for every reconfiguration event, begin or end, on any thread; an empty function ends
    // the calls. A query that changes nothing may not cause one.
    virtual void setReconfigurationHandler(std::function<void()> handler) = 0;
};

} // namespace vantrel
