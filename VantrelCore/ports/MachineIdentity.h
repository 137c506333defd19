// Port: identifies this computer.
#pragma once

#include <optional>
#include <string>

namespace vantrel {

class MachineIdentity {
public:
    MachineIdentity() = default;
    MachineIdentity(const MachineIdentity&) = delete;
    MachineIdentity& operator=(const MachineIdentity&) = delete;
    virtual ~MachineIdentity() = default;

    // Stays the same until the operating system is reinstalled. Never disclose it as it is. None when the
    // system has no such identifier.
    [[nodiscard]] virtual std::optional<std::string> machineID() = 0;
};

} // namespace vantrel
