// Reads JSON that somebody else wrote and that must have one meaning only: no key twice, nothing behind the
// document, no deep nesting.
#pragma once

#include <cstddef>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>

namespace vantrel::StrictJson {

// None when the text is longer than `largest` bytes, or anything else than one JSON document as above.
[[nodiscard]] std::optional<nlohmann::json> parse(std::string_view text, std::size_t largest);

} // namespace vantrel::StrictJson
