// Whose program this is: the vendor's servers and key, chosen when it is built (cmake/Vendor.cmake).
#pragma once

#include <string>

namespace vantrel {

struct Vendor {
    // Without a slash at the end.
    std::string apiServer;
    std::string website;
    // The Ed25519 key that licences are signed with, in hexadecimal digits; empty when no licence is needed.
    std::string licensePublicKey;
};

[[nodiscard]] Vendor vendor();

} // namespace vantrel
