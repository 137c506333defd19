#include "VantrelCore/licensing/LicensedMachine.h"

#include "VantrelCore/licensing/Digest.h"

namespace vantrel::LicensedMachine {

std::string hash(std::string_view machineID) {
    // Our own prefix makes it differ from other programs' digests of the same identity.
    return Digest::hex("vantrel license machine\n" + std::string(machineID));
}

} // namespace vantrel::LicensedMachine
