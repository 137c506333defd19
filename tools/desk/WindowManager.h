// A window manager on the private desk, with its own plain configuration.
#pragma once

#include "tools/desk/ChildProcess.h"
#include "tools/desk/DeskConnection.h"
#include "tools/desk/TemporaryHome.h"

#include <string>
#include <vector>

namespace vantrel::tools {

class WindowManager {
public:
    // "openbox", "xfwm4" or any other that needs no arguments. Returns once it manages the screen.
    WindowManager(const std::string& name, const TemporaryHome& home, std::vector<std::string> environment,
                  DeskConnection& connection);

    [[nodiscard]] ChildProcess& process() { return m_process; }

private:
    ChildProcess m_process;
};

} // namespace vantrel::tools
