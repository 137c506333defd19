#include "VantrelCore/licensing/LicenseNonce.h"

#include <array>
#include <sodium.h>

namespace vantrel::LicenseNonce {

std::string make() {
    std::array<unsigned char, 16> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    std::string digits(bytes.size() * 2 + 1, '\0');
    sodium_bin2hex(digits.data(), digits.size(), bytes.data(), bytes.size());
    digits.pop_back();
    return digits;
}

} // namespace vantrel::LicenseNonce
