// A number that is used once: a server that signs it with its answer has made the answer for this request.
#pragma once

#include <string>

namespace vantrel::LicenseNonce {

// 32 random hexadecimal digits.
[[nodiscard]] std::string make();

} // namespace vantrel::LicenseNonce
