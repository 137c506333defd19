// A count with its noun: "1 window", "0 windows". For nouns whose plural takes an s.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantrel {

[[nodiscard]] std::string countedNoun(std::int64_t count, std::string_view noun);

} // namespace vantrel
