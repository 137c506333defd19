// A connection to the X server over which pictures of windows are taken: Composite keeps what covered windows
// show, Damage says which have changed, and shared memory carries the pixels.
#pragma once

#include "Vantrel/platform/posix/FileDescriptor.h"
#include "Vantrel/platform/x11/WindowPicture.h"
#include "Vantrel/platform/x11/X11DeskReading.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>
#include <xcb/damage.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace vantrel {

// For one thread. While it exists, the windows that are watched are redirected; a compositing window manager
// may have done so already, which changes nothing. What was redirected here ends with it.
class CaptureConnection {
public:
    // Null if the server lacks an extension, or its pixels are not the usual ones.
    [[nodiscard]] static std::unique_ptr<CaptureConnection> open(const std::string& displayName);

    CaptureConnection(const CaptureConnection&) = delete;
    CaptureConnection& operator=(const CaptureConnection&) = delete;
    ~CaptureConnection();

    // Readable when something may have changed.
    [[nodiscard]] int descriptor() const { return xcb_get_file_descriptor(m_xcb); }
    [[nodiscard]] bool isConnected() const { return xcb_connection_has_error(m_xcb) == 0; }

    // From the first call for a window on, it is redirected and its changes are reported.
    void watch(const X11Window& window);
    void forget(const X11Window& window);

    // The windows that have changed since they were captured.
    [[nodiscard]] std::vector<xcb_window_t> takeChanged();

    // The content of a window without decoration and shadow; none if it cannot be seen, is gone or another
    // window has its id now.
    [[nodiscard]] std::optional<WindowPicture> capture(const X11Window& window, int longest);

private:
    struct Watched {
        // The child of the root that contains the window.
        xcb_window_t top = XCB_WINDOW_NONE;
        xcb_damage_damage_t damage = XCB_NONE;
    };
    // A part of a window's pixmap.
    struct Part {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
    };

    CaptureConnection(xcb_connection_t* xcb, const xcb_screen_t& screen) : m_xcb(xcb), m_screen(screen) {}

    [[nodiscard]] bool prepare();
    [[nodiscard]] xcb_window_t topOf(xcb_window_t window) const;
    // What of the top-level window's pixmap shows the window's content.
    [[nodiscard]] std::optional<Part> partOf(const X11Window& window, xcb_window_t top) const;
    // Room for as many pixels, shared with the server; false without.
    [[nodiscard]] bool reserve(std::size_t pixels);
    void release();

    xcb_connection_t* m_xcb;
    xcb_screen_t m_screen;
    std::uint8_t m_firstDamageEvent = 0;
    xcb_atom_t m_markAtom = XCB_ATOM_NONE;
    xcb_atom_t m_shadowAtom = XCB_ATOM_NONE;
    std::map<xcb_window_t, Watched> m_watched;
    xcb_shm_seg_t m_segment = XCB_NONE;
    std::span<std::uint32_t> m_pixels;
};

} // namespace vantrel
