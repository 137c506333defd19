// A private desk with the X11 adapters under test, for the tests of windows.
#pragma once

#include "Vantrel/platform/x11/X11Desk.h"
#include "tests/live/VantrelDesk.h"
#include "tools/desk/ProbeClient.h"

#include <memory>
#include <optional>
#include <string>

namespace vantrel::live {

// Throws std::runtime_error with a sentence.
[[nodiscard]] std::shared_ptr<X11Connection> connectTo(const PrivateDesk& desk);

struct WindowDesk : VantrelDesk {
    using VantrelDesk::VantrelDesk;

    std::shared_ptr<X11Connection> x11 = connectTo(*this);
    std::shared_ptr<X11Context> context = std::make_shared<X11Context>(x11);
    X11Desk port{context};
    ProbeClient probe{display()};

    // The window of that title in one capture; none when there is no such window.
    [[nodiscard]] std::optional<DeskWindow> capture(const std::string& title);

    // The window as it is now; none when it is gone.
    [[nodiscard]] std::optional<DeskWindow> look(WindowID window);

    // Returns once the window manager has handled everything sent before; false when it never does.
    [[nodiscard]] bool awaitQuiet();

    // The same after awaitQuiet, when the window is there. Throws when it never is.
    [[nodiscard]] DeskWindow captured(const std::string& title);

    // Asks the window manager to add or remove up to two states ("SHADED") and waits until it has.
    void setStates(xcb_window_t window, const std::vector<std::string>& states, bool isOn);
    [[nodiscard]] bool hasState(xcb_window_t window, const std::string& state);
};

class WindowsUnder : public ::testing::TestWithParam<const char*> {
protected:
    bool eventually(const std::function<bool()>& condition) { return desk.connection().waitUntil(condition); }

    WindowDesk desk{GetParam()};
};

} // namespace vantrel::live
