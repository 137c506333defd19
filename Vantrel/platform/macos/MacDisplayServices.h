// The connected displays. Quartz gives the set and its changes, the I/O Kit registry the monitors' identity.
#pragma once

#include "VantrelCore/ports/DisplayServices.h"

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

    [[nodiscard]] std::vector<ActiveDisplay> activeDisplays() override;
    [[nodiscard]] std::vector<Screen> screens() override { return m_screens(); }
    [[nodiscard]] std::vector<EdidHint> edidHints() override;
    void setReconfigurationHandler(std::function<void()> handler) override;

private:
    class Registration;

    ScreenList m_screens;
    std::unique_ptr<Registration> m_registration;
};

} // namespace vantrel
