// Port: which computer this is.
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

    // The same as long as the operating system is not installed anew; not to be given away as it is. None
    // when the system has no such thing.
    [[nodiscard]] virtual std::optional<std::string> machineID() = 0;
};

} // namespace vantrel
