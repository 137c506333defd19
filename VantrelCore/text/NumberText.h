// Numbers as the user's language writes them.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel::NumberText {

// In groups of three digits: "1,240".
[[nodiscard]] std::string grouped(std::int64_t number);

// With one decimal place: "0.8".
[[nodiscard]] std::string oneDecimal(double number);

} // namespace vantrel::NumberText
