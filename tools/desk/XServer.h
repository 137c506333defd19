// A private X server with the dummy driver on a free display number; its outputs can be plugged and unplugged
// freely.
#pragma once

#include "tools/desk/ChildProcess.h"
#include "tools/desk/TemporaryHome.h"

#include <string>

namespace vantrel::tools {

class XServer {
public:
    // Returns when the server accepts clients.
    explicit XServer(const TemporaryHome& home);

    // ":7"
    [[nodiscard]] const std::string& display() const { return m_display; }

    [[nodiscard]] ChildProcess& process() { return m_process; }

private:
    // Declared before the process, which fills it in while starting.
    std::string m_display;
    ChildProcess m_process;
};

} // namespace vantrel::tools
