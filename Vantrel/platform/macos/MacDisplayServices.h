// The connected displays. Quartz gives the set and its changes, the I/O Kit registry the monitors' identity.
#pragma once

#include "VantrelCore/displays/DisplayTopology.h"

#include <functional>
#include <memory>
#include <vector>

namespace vantrel {

class MacDisplayServices final : public DisplayServices {
public:
    using ScreenList = std::function<std::vector<Screen>()>;

    // `screens` returns AppKit's screens.
    explicit MacDisplayServices(ScreenList screens);
    ~MacDisplayServices() override;
    MacDisplayServices(const MacDisplayServices&) = delete;
    MacDisplayServices& operator=(const MacDisplayServices&) = delete;

    [[nodiscard]] std::vector<DisplayInfo> displays() override;
    void setReconfigurationHandler(std::function<void()> handler) override;

    [[nodiscard]] static std::vector<ActiveDisplay> activeDisplays();

private:
    class Registration;

    ScreenList m_screens;
    std::unique_ptr<Registration> m_registration;
};

} // namespace vantrel
