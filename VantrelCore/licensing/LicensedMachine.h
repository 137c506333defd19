// The name by which the vendor identifies a computer: a digest that does not reveal the computer's own
// identity.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::LicensedMachine {

// 64 hexadecimal digits. `machineID` is from MachineIdentity.
[[nodiscard]] std::string hash(std::string_view machineID);

} // namespace vantrel::LicensedMachine
