// A client written for the tests: windows with arbitrary, even odd properties, on a separate connection.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "tools/desk/DeskConnection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

struct ProbePlan {
    std::string title = {};
    std::string wmClass = "Probe";
    // Client area, as requested from the window manager.
    Rect area = {{200, 200}, {400, 300}};
    // "DIALOG" for _NET_WM_WINDOW_TYPE_DIALOG; empty for none.
    std::string type = {};
    // 0: not set.
    std::uint32_t pid = 0;
    // X window gravity, 1 = north-west to 10 = static; 0: not set.
    std::uint32_t gravity = 0;
    std::uint32_t minSize = 0;
    std::uint32_t maxSize = 0;
    // An invisible margin of this width on all sides, as in clients with their own decorations.
    std::uint32_t shadow = 0;
    xcb_window_t transientFor = XCB_WINDOW_NONE;
};

// Windows live as long as the client. Throws like DeskConnection.
class ProbeClient {
public:
    explicit ProbeClient(const std::string& display) : m_connection(display) {}

    [[nodiscard]] DeskConnection& connection() { return m_connection; }

    // Shows the window at once; returns when the window manager has put it on screen.
    xcb_window_t show(const ProbePlan& plan);
    // Creates the window without showing it, so that odd properties can be set first.
    xcb_window_t create(const ProbePlan& plan);
    void map(xcb_window_t window);
    void destroy(xcb_window_t window);

    void setText(xcb_window_t window, const std::string& property, const std::string& type,
                 const std::string& bytes);
    void setValues(xcb_window_t window, const std::string& property, const std::string& type,
                   const std::vector<std::uint32_t>& values);

private:
    DeskConnection m_connection;
};

} // namespace vantrel::tools
