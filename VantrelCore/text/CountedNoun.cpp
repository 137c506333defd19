#include "VantrelCore/text/CountedNoun.h"

#include <fmt/format.h>

namespace vantrel {

std::string countedNoun(std::int64_t count, std::string_view noun) {
    return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

} // namespace vantrel
