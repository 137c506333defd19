// The digest that licence records and machine names are made with: BLAKE2b of 256 bits.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::Digest {

// 64 hexadecimal digits.
[[nodiscard]] std::string hex(std::string_view text);

} // namespace vantrel::Digest
