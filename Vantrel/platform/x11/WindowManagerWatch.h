// Keeps X11Context::windowManager true while window managers come and go.
#pragma once

#include "Vantrel/platform/posix/WokenThread.h"
#include "Vantrel/platform/x11/X11Context.h"

#include <atomic>
#include <memory>

namespace vantrel {

// After each event that may mean another window manager, a thread of its own asks the server.
class WindowManagerWatch {
public:
    // Asks at once, in two round trips. `context` is shared with other adapters and never null.
    explicit WindowManagerWatch(std::shared_ptr<X11Context> context);
    // Waits for a running look.
    ~WindowManagerWatch();
    WindowManagerWatch(const WindowManagerWatch&) = delete;
    WindowManagerWatch& operator=(const WindowManagerWatch&) = delete;

    // Asks again soon. May be called from any thread and never waits.
    void lookSoon() { m_thread.wake(); }

private:
    void look();

    std::shared_ptr<X11Context> m_context;
    // The window that proves that a window manager runs, as long as it exists.
    std::atomic<xcb_window_t> m_proof = XCB_WINDOW_NONE;
    // Of the proving window. Used by the thread that looks.
    Registration m_proofEvents;
    Registration m_rootEvents;
    Registration m_changes;
    Registration m_destructions;
    // Last, so that it ends before what it uses.
    posix::WokenThread m_thread;
};

} // namespace vantrel
