// A private D-Bus bus, the session's or another, that activates nothing but what the desk's programs need to
// keep settings.
#pragma once

#include "tools/desk/ChildProcess.h"
#include "tools/desk/TemporaryHome.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

class SessionBus {
public:
    // `environment` is what activated services get. Returns when the bus accepts connections.
    // `name` tells it from the home's other buses. The home outlives the bus.
    SessionBus(const TemporaryHome& home, std::vector<std::string> environment,
               const std::string& name = "bus");

    [[nodiscard]] const std::string& address() const { return m_address; }

    // Whoever is connected loses the connection.
    void end();
    // After its end; at the same address.
    void start();

private:
    std::string m_address;
    const TemporaryHome& m_home;
    ChildStart m_start;
    std::optional<ChildProcess> m_process;
};

} // namespace vantrel::tools
