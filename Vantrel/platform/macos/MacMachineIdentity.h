// Identifies the Mac by its hardware UUID in the I/O Kit registry.
#pragma once

#include "VantrelCore/ports/MachineIdentity.h"

namespace vantrel {

class MacMachineIdentity final : public MachineIdentity {
public:
    [[nodiscard]] std::optional<std::string> machineID() override;
};

} // namespace vantrel
