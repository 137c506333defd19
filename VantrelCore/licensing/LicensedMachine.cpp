#include "VantrelCore/licensing/LicensedMachine.h"

#include "VantrelCore/licensing/Digest.h"

namespace vantrel::LicensedMachine {

std::string hash(std::string_view machineID) {
    // With words of our own before it, so that it is nobody else's digest of the same identity.
    return Digest::hex("vantrel license machine\n" + std::string(machineID));
}

} // namespace vantrel::LicensedMachine
