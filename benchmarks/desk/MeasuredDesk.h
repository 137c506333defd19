// Captures and restores a crowded desk as the application does: real adapters, two learned layouts, a
// verified restore.
#pragma once

#include "Vantrel/platform/posix/SystemClock.h"
#include "Vantrel/platform/x11/X11Desk.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/windows/LiveWindow.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::bench {

class MeasuredDesk {
public:
    // Throws std::runtime_error with a readable sentence if the server does not respond.
    explicit MeasuredDesk(const std::string& display);

    [[nodiscard]] std::vector<LiveWindow> capture();

    // Stores the current windows as the layout of that arrangement.
    void learn(std::size_t arrangement);

    // True if the report lists every window as restored.
    [[nodiscard]] bool restore(std::size_t arrangement, const std::vector<LiveWindow>& current);

private:
    std::shared_ptr<X11Connection> m_connection;
    X11Desk m_desk;
    std::vector<DisplayInfo> m_displays;
    std::array<Layout, 2> m_layouts;
    SystemClock m_clock;
    MovePermit m_permit;
};

} // namespace vantrel::bench
