// The displays of an X server, as RandR and the window manager's hints tell of them.
#pragma once

#include "Vantrel/platform/x11/ReconfigurationWatch.h"
#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <memory>
#include <optional>

namespace vantrel {

// Global coordinates are those of the root window, whose origin is the top left of all monitors together.
class X11DisplayServices final : public DisplayServices {
public:
    explicit X11DisplayServices(std::shared_ptr<X11Connection> connection);

    [[nodiscard]] std::vector<ActiveDisplay> activeDisplays() override;
    [[nodiscard]] std::vector<Screen> screens() override;
    [[nodiscard]] std::vector<EdidHint> edidHints() override;

    // The handler is called on a thread of its own, only when the displays changed.
    void setReconfigurationHandler(std::function<void()> handler) override;

private:
    [[nodiscard]] std::vector<X11Display> displays() const;

    std::shared_ptr<X11Connection> m_connection;
    std::optional<ReconfigurationWatch> m_watch;
};

} // namespace vantrel
