// A number used once: a reply that contains it, signed, was made for this request.
#pragma once

#include <string>

namespace vantrel::LicenseNonce {

// 32 random hexadecimal digits.
[[nodiscard]] std::string make();

} // namespace vantrel::LicenseNonce
