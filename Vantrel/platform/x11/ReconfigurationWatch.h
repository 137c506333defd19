// Reports real changes of the displays, and nothing but those: one change comes as many RandR events, and a
// mere query by another program can cause some, too.
#pragma once

#include "Vantrel/platform/x11/DisplayList.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>
#include <xcb/randr.h>

namespace vantrel {

// After every batch of events its own thread reads the displays and compares them with what they were. A
// monitor that went and came back between two readings is noticed by the events themselves, which carry
// each CRTC's state.
class ReconfigurationWatch {
public:
    // Calls `handler` on the watch's thread. No call is under way once this object is gone; it may not be
    // destroyed by the handler.
    ReconfigurationWatch(std::shared_ptr<X11Connection> connection, std::function<void()> handler);
    ~ReconfigurationWatch();
    ReconfigurationWatch(const ReconfigurationWatch&) = delete;
    ReconfigurationWatch& operator=(const ReconfigurationWatch&) = delete;

private:
    struct CrtcState {
        xcb_randr_mode_t mode = XCB_NONE;
        std::uint16_t rotation = 0;
        std::int16_t x = 0;
        std::int16_t y = 0;

        bool operator==(const CrtcState&) const = default;
    };

    // What a CRTC that is off reports besides the mode means nothing.
    [[nodiscard]] static CrtcState crtcState(xcb_randr_mode_t mode, std::uint16_t rotation, std::int16_t x,
                                             std::int16_t y);
    [[nodiscard]] std::map<xcb_randr_crtc_t, CrtcState> readCrtcs() const;
    // None when the connection is lost.
    [[nodiscard]] std::optional<std::vector<X11Display>> readDisplays() const;
    void noteEvent();
    void noteCrtc(const xcb_randr_crtc_change_t& change);
    void compareUntilStopped();
    void compare(bool hasCrtcChanged);

    std::shared_ptr<X11Connection> m_connection;
    std::function<void()> m_handler;
    // Of the worker thread, after construction.
    std::vector<X11Display> m_displays;

    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_hasEvents = false;
    bool m_hasCrtcChanged = false;
    bool m_isStopping = false;
    std::map<xcb_randr_crtc_t, CrtcState> m_crtcs;

    Registration m_screenEvents;
    Registration m_otherEvents;
    std::thread m_thread;
};

} // namespace vantrel
