// A private desk with the adapters under test on it, for the tests of windows.
#pragma once

#include "Vantrel/platform/x11/X11Accessibility.h"
#include "tests/live/desk/PrivateDesk.h"
#include "tests/live/desk/ProbeClient.h"

#include <memory>
#include <optional>
#include <string>

namespace vantrel::live {

struct CapturedWindow {
    RunningApp app;
    WindowAttributes attributes;
    std::shared_ptr<WindowElement> element;
    // From the on-screen list: the entry with the same owner and bounds.
    std::optional<WindowListEntry> entry;
};

struct WindowDesk {
    static constexpr MonitorPlace left{0, 0, 1280, 1024};
    static constexpr MonitorPlace right{1280, 0, 1600, 900};

    explicit WindowDesk(const std::string& windowManager);

    PrivateDesk desk;
    std::shared_ptr<X11Connection> connection;
    X11Accessibility accessibility;
    ProbeClient probe;

    // One whole capture; none when it has no window of that title.
    [[nodiscard]] std::optional<CapturedWindow> capture(const std::string& title);

    // The window of a program that may still be choosing its title; waits until a capture has it.
    [[nodiscard]] std::optional<CapturedWindow> captureWhenTitled(xcb_window_t client);

    // What the harness sees, independent of the adapters.
    [[nodiscard]] std::optional<Rect> seenFrame(xcb_window_t client);
};

} // namespace vantrel::live
