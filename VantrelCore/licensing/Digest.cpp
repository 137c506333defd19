#include "VantrelCore/licensing/Digest.h"

#include <array>
#include <sodium.h>

namespace vantrel::Digest {

std::string hex(std::string_view text) {
    std::array<unsigned char, crypto_generichash_BYTES> digest{};
    crypto_generichash(digest.data(), digest.size(), reinterpret_cast<const unsigned char*>(text.data()),
                       text.size(), nullptr, 0);
    std::string digits(digest.size() * 2 + 1, '\0');
    sodium_bin2hex(digits.data(), digits.size(), digest.data(), digest.size());
    digits.pop_back();
    return digits;
}

} // namespace vantrel::Digest
