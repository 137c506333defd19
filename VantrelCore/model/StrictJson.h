// Parses untrusted JSON that must be unambiguous: no duplicate keys, no trailing content, no deep nesting.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>

namespace vantrel::StrictJson {

// None when the text is longer than `largest` bytes or breaks these rules.
[[nodiscard]] std::optional<nlohmann::json> parse(std::string_view text, std::size_t largest);

} // namespace vantrel::StrictJson
