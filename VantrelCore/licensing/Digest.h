// The digest used for licence records and machine names: BLAKE2b with 256 bits.
#pragma once

#include <string>
#include <string_view>

namespace vantrel::Digest {

// 64 hexadecimal digits.
[[nodiscard]] std::string hex(std::string_view text);

} // namespace vantrel::Digest
