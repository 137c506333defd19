#include "tools/desk/ProbeClient.h"

#include "tools/desk/SeenWindow.h"

#include <array>
#include <stdexcept>

namespace vantrel::tools {

namespace {

// The 32-bit words of a WM_SIZE_HINTS property.
enum Hint : std::size_t {
    flags = 0,
    minWidth = 5,
    minHeight,
    maxWidth,
    maxHeight,
    gravity = 17,
    hintWords,
};

constexpr std::uint32_t userPosition = 1U << 0;
constexpr std::uint32_t programMinSize = 1U << 4;
constexpr std::uint32_t programMaxSize = 1U << 5;
constexpr std::uint32_t windowGravity = 1U << 9;

std::vector<std::uint32_t> sizeHints(const ProbePlan& plan) {
    std::vector<std::uint32_t> words(hintWords, 0);
    words[flags] = userPosition;
    if (plan.minSize > 0) {
        words[flags] |= programMinSize;
        words[minWidth] = words[minHeight] = plan.minSize;
    }
    if (plan.maxSize > 0) {
        words[flags] |= programMaxSize;
        words[maxWidth] = words[maxHeight] = plan.maxSize;
    }
    if (plan.gravity > 0) {
        words[flags] |= windowGravity;
        words[gravity] = plan.gravity;
    }
    return words;
}

} // namespace

xcb_window_t ProbeClient::create(const ProbePlan& plan) {
    xcb_connection_t* const xcb = m_connection.xcb();
    const xcb_window_t window = xcb_generate_id(xcb);
    const auto& [origin, size] = plan.area;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, window, m_connection.root(),
                      static_cast<std::int16_t>(origin.x), static_cast<std::int16_t>(origin.y),
                      static_cast<std::uint16_t>(size.width), static_cast<std::uint16_t>(size.height), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &m_connection.screen().white_pixel);
    setText(window, "_NET_WM_NAME", "UTF8_STRING", plan.title);
    if (!plan.wmClass.empty()) {
        setText(window, "WM_CLASS", "STRING", plan.wmClass + '\0' + plan.wmClass + '\0');
    }
    setValues(window, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", sizeHints(plan));
    if (!plan.type.empty()) {
        setValues(window, "_NET_WM_WINDOW_TYPE", "ATOM",
                  {m_connection.atom("_NET_WM_WINDOW_TYPE_" + plan.type)});
    }
    if (plan.pid > 0) {
        setValues(window, "_NET_WM_PID", "CARDINAL", {plan.pid});
    }
    if (plan.shadow > 0) {
        setValues(window, "_GTK_FRAME_EXTENTS", "CARDINAL", std::vector<std::uint32_t>(4, plan.shadow));
        // No decoration from the window manager (Motif hints).
        setValues(window, "_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
    }
    if (plan.transientFor != XCB_WINDOW_NONE) {
        setValues(window, "WM_TRANSIENT_FOR", "WINDOW", {plan.transientFor});
    }
    return window;
}

xcb_window_t ProbeClient::show(const ProbePlan& plan) {
    const xcb_window_t window = create(plan);
    map(window);
    return window;
}

void ProbeClient::map(xcb_window_t window) {
    xcb_map_window(m_connection.xcb(), window);
    m_connection.finish();
    const auto isShown = [&] {
        const auto seen = seenWindow(m_connection, window);
        return seen && seen->isViewable && !m_connection.values(window, "WM_STATE").empty();
    };
    constexpr int tries = 300;
    constexpr double tryOften = 0.1;
    int tried = 0;
    while (!m_connection.waitUntil(isShown, tryOften) && ++tried < tries) {
        // openbox 3.6 may sleep on a request that it has already read; any message wakes it.
        m_connection.tellWindowManager(window, "_NET_REQUEST_FRAME_EXTENTS", {});
    }
    if (tried == tries) {
        throw std::runtime_error("the window manager did not show a test window");
    }
}

void ProbeClient::destroy(xcb_window_t window) {
    xcb_destroy_window(m_connection.xcb(), window);
    m_connection.finish();
}

void ProbeClient::setText(xcb_window_t window, const std::string& property, const std::string& type,
                          const std::string& bytes) {
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, window, m_connection.atom(property),
                        m_connection.atom(type), 8, static_cast<std::uint32_t>(bytes.size()), bytes.data());
    m_connection.finish();
}

void ProbeClient::setValues(xcb_window_t window, const std::string& property, const std::string& type,
                            const std::vector<std::uint32_t>& values) {
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, window, m_connection.atom(property),
                        m_connection.atom(type), 32, static_cast<std::uint32_t>(values.size()),
                        values.data());
    m_connection.finish();
}

} // namespace vantrel::tools
