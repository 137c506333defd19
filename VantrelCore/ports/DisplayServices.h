// Port: the connected displays.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <functional>
#include <vector>

namespace vantrel {

// Used on the main thread.
class DisplayServices {
public:
    DisplayServices() = default;
    DisplayServices(const DisplayServices&) = delete;
    DisplayServices& operator=(const DisplayServices&) = delete;
    virtual ~DisplayServices() = default;

    // The active displays in the platform's order; empty when all are asleep or the platform does not
    // respond.
    [[nodiscard]] virtual std::vector<DisplayInfo> displays() = 0;

    // Calls `handler` for every reconfiguration event, begin or end, on any thread; an empty function stops
    // the calls. A query that changes nothing must not trigger one.
    virtual void setReconfigurationHandler(std::function<void()> handler) = 0;
};

} // namespace vantrel
