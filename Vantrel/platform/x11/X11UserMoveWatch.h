// Watches one window of the X server for moves by the user; see UserMoveEvidence.
#pragma once

#include "Vantrel/platform/x11/UserMoveEvidence.h"
#include "Vantrel/platform/x11/X11Context.h"
#include "VantrelCore/ports/UserMoveWatch.h"
#include "VantrelCore/windows/LoneMoveEvidence.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <xcb/xcb.h>

namespace vantrel {

class X11UserMoveWatch final : public UserMoveWatch {
public:
    // Watches from the moment it returns. Returns null if the window is gone.
    [[nodiscard]] static std::unique_ptr<X11UserMoveWatch> begin(std::shared_ptr<X11Context> desk,
                                                                 xcb_window_t client);

    ~X11UserMoveWatch() override;

    // Takes every move up to this call into account.
    [[nodiscard]] bool hasSeenUser() override;

    // Requests that follow EWMH go to the root window, where everybody can see them; ClientMessage hides
    // ours. Requests in the way of ICCCM (ConfigureWindow, as by xdotool) are seen only by the window
    // manager; LoneMoveEvidence infers them.
    [[nodiscard]] bool hasSeenRequest() const override;

private:
    X11UserMoveWatch(std::shared_ptr<X11Context> desk, xcb_window_t client, xcb_window_t frame,
                     const Rect& area);

    void noticeFocus(const xcb_focus_in_event_t& event, bool isGrab);
    void noticeMove(const xcb_configure_notify_event_t& event);
    void noticeRequest(const xcb_client_message_event_t& message);
    // Handles the reply to the pointer query if it has arrived. Call with the mutex held.
    void takePointer();

    std::shared_ptr<X11Context> m_desk;
    xcb_window_t m_client;
    // The child of the root that contains the client, or the client itself.
    xcb_window_t m_frame;
    mutable std::mutex m_mutex;
    UserMoveEvidence m_evidence;
    LoneMoveEvidence m_loneMoves;
    std::atomic<bool> m_isRequested = false;
    // The pointer query in flight, if any.
    std::optional<xcb_query_pointer_cookie_t> m_pointer;
    Registration m_focusIn;
    Registration m_focusOut;
    Registration m_moves;
    Registration m_requests;
    Registration m_focusSelection;
    Registration m_moveSelection;
};

} // namespace vantrel
