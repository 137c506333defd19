// A tiny panel: a dock window that reserves a strip along one edge of one monitor.
#pragma once

#include "tools/desk/DeskConnection.h"
#include "tools/desk/Monitors.h"

#include <cstdint>

namespace vantrel::tools {

enum class DockEdge : std::uint8_t { top, bottom };

class DockWindow {
public:
    // `thickness` in pixels. Returns once the window manager, if any, manages it.
    DockWindow(DeskConnection& connection, const MonitorPlace& monitor, DockEdge edge,
               std::uint16_t thickness);
    ~DockWindow();
    DockWindow(const DockWindow&) = delete;
    DockWindow& operator=(const DockWindow&) = delete;

    [[nodiscard]] xcb_window_t window() const { return m_window; }

private:
    DeskConnection& m_connection;
    xcb_window_t m_window;
};

} // namespace vantrel::tools
