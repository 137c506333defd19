// A private D-Bus bus, for the session or another purpose, that activates only what the desk's programs need
// for settings.
#pragma once

#include "tools/desk/ChildProcess.h"
#include "tools/desk/TemporaryHome.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

class SessionBus {
public:
    // `environment` is passed to activated services. Returns when the bus accepts connections. `name`
    // distinguishes it from the home's other buses. The home must outlive the bus.
    SessionBus(const TemporaryHome& home, std::vector<std::string> environment,
               const std::string& name = "bus");

    [[nodiscard]] const std::string& address() const { return m_address; }

    // All clients lose their connection.
    void end();
    // Restarts it after its end, at the same address.
    void start();

private:
    std::string m_address;
    const TemporaryHome& m_home;
    ChildStart m_start;
    std::optional<ChildProcess> m_process;
};

} // namespace vantrel::tools
