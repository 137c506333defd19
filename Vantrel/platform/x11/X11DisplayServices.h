// The displays of an X server, from RandR and the window manager's hints.
#pragma once

#include "Vantrel/platform/x11/ReconfigurationWatch.h"
#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <memory>
#include <optional>

namespace vantrel {

// Global coordinates are root window coordinates, with the origin at the top left of all monitors.
class X11DisplayServices final : public DisplayServices {
public:
    explicit X11DisplayServices(std::shared_ptr<X11Connection> connection);

    // With a handler set, the displays as last seen; without, asks the server.
    [[nodiscard]] std::vector<DisplayInfo> displays() override;

    // Calls the handler on a worker thread, only if the displays have changed.
    void setReconfigurationHandler(std::function<void()> handler) override;

private:
    std::shared_ptr<X11Connection> m_connection;
    std::optional<ReconfigurationWatch> m_watch;
};

} // namespace vantrel
