// A private D-Bus session bus that activates nothing but what the desk's programs need to keep settings.
#pragma once

#include "tests/live/desk/ChildProcess.h"
#include "tests/live/desk/TemporaryHome.h"

#include <string>
#include <vector>

namespace vantrel::live {

class SessionBus {
public:
    // `environment` is what activated services get. Returns when the bus accepts connections.
    SessionBus(const TemporaryHome& home, std::vector<std::string> environment);

    [[nodiscard]] const std::string& address() const { return m_address; }

private:
    std::string m_address;
    ChildProcess m_process;
};

} // namespace vantrel::live
