// The name under which the vendor knows a computer: a digest, from which the computer's own identity cannot
// be had.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::LicensedMachine {

// 64 hexadecimal digits. `machineID` is what MachineIdentity gives.
[[nodiscard]] std::string hash(std::string_view machineID);

} // namespace vantrel::LicensedMachine
