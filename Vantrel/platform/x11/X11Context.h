// State shared by the adapters that read and move the windows of one X server.
#pragma once

#include "Vantrel/platform/x11/DesktopEntries.h"
#include "Vantrel/platform/x11/WindowManager.h"
#include "Vantrel/platform/x11/WindowManagerFence.h"
#include "Vantrel/platform/x11/WindowMarks.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <utility>

namespace vantrel {

struct X11Context {
    explicit X11Context(std::shared_ptr<X11Connection> shared)
        : connection(std::move(shared)), fence(connection) {}

    std::shared_ptr<X11Connection> connection;
    WindowManagerFence fence;
    WindowMarks marks;
    DesktopEntries desktopEntries;
    // As found by the latest capture or by WindowManagerWatch.
    static_assert(std::atomic<WindowManager>::is_always_lock_free);
    std::atomic<WindowManager> windowManager = WindowManager{};
    // When a wave last asked for moves or looked at what came of them.
    std::atomic<std::chrono::steady_clock::time_point> lastOwnMoves{};

    void noteWindowManager(const WindowManager& found) {
        windowManager = found;
        fence.noteWindowManager(found.supportingWindow);
    }
};

} // namespace vantrel
