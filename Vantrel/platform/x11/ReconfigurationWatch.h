// Reports display changes and knows the displays. One change causes many RandR events, and a mere query by
// another program can cause some too; this filters out events without a change.
#pragma once

#include "Vantrel/platform/posix/WokenThread.h"
#include "Vantrel/platform/x11/DisplayList.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>
#include <xcb/randr.h>

namespace vantrel {

// After each batch of events, a worker thread reads the displays and compares them with the previous reading.
// A monitor that disappears and returns between two readings is detected from the CRTC state that the events
// carry.
class ReconfigurationWatch {
public:
    // Calls `handler` on the worker thread. The destructor waits for a running call, so the handler must not
    // destroy this object.
    ReconfigurationWatch(std::shared_ptr<X11Connection> connection, std::function<void()> handler);
    ~ReconfigurationWatch();
    ReconfigurationWatch(const ReconfigurationWatch&) = delete;
    ReconfigurationWatch& operator=(const ReconfigurationWatch&) = delete;

    // Asks the server, in four round trips; empty if the connection is lost.
    [[nodiscard]] static std::vector<DisplayInfo> read(const X11Connection& connection);

    // The displays as last read, with what panels leave of them; never waits. Has them read again soon, so
    // the next call also shows what no event reports.
    [[nodiscard]] std::vector<DisplayInfo> displays();

private:
    struct CrtcState {
        xcb_randr_mode_t mode = XCB_NONE;
        std::uint16_t rotation = 0;
        std::int16_t x = 0;
        std::int16_t y = 0;

        bool operator==(const CrtcState&) const = default;
    };

    // Ignores rotation and position if the CRTC is off; they are meaningless then.
    [[nodiscard]] static CrtcState crtcState(xcb_randr_mode_t mode, std::uint16_t rotation, std::int16_t x,
                                             std::int16_t y);
    [[nodiscard]] std::map<xcb_randr_crtc_t, CrtcState> readCrtcs() const;
    // Returns none if the connection is lost.
    [[nodiscard]] static std::optional<std::vector<DisplayInfo>>
    readDisplays(const X11Connection& connection);
    [[nodiscard]] static std::vector<DisplayInfo> withVisibleFrames(const X11Connection& connection,
                                                                    std::vector<DisplayInfo> displays);
    void noteCrtc(const xcb_randr_crtc_change_t& change);
    void compare();

    std::shared_ptr<X11Connection> m_connection;
    std::function<void()> m_handler;
    // Whole displays. Used only by the worker thread after construction.
    std::vector<DisplayInfo> m_displays;

    std::mutex m_mutex;
    bool m_hasCrtcChanged = false;
    std::vector<DisplayInfo> m_latest;
    std::map<xcb_randr_crtc_t, CrtcState> m_crtcs;

    Registration m_screenEvents;
    Registration m_otherEvents;
    Registration m_rootChanges;
    Registration m_rootEvents;
    // Last, so that it ends before what it uses.
    posix::WokenThread m_thread;
};

} // namespace vantrel
