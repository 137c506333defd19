// A window manager on the private desk, with a plain configuration of its own.
#pragma once

#include "tests/live/desk/ChildProcess.h"
#include "tests/live/desk/DeskConnection.h"
#include "tests/live/desk/TemporaryHome.h"

#include <string>
#include <vector>

namespace vantrel::live {

class WindowManager {
public:
    // "openbox", "xfwm4" or any other that needs no arguments. Returns when it manages the screen.
    WindowManager(const std::string& name, const TemporaryHome& home, std::vector<std::string> environment,
                  DeskConnection& connection);

    [[nodiscard]] ChildProcess& process() { return m_process; }

private:
    ChildProcess m_process;
};

} // namespace vantrel::live
