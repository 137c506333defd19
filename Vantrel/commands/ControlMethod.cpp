#include "Vantrel/commands/ControlMethod.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel {

std::optional<std::string> refusalOf(const std::optional<std::vector<std::string>>& arguments,
                                     const ControlMethod& method) {
    if (!arguments || arguments->size() != method.arguments.size()) {
        return fmt::format("{} takes {} string argument{}.", method.name, method.arguments.size(),
                           method.arguments.size() == 1 ? "" : "s");
    }
    if (std::ranges::any_of(*arguments, [](const auto& each) { return each.size() > maxArgumentLength; })) {
        return fmt::format("{} takes strings of at most {} bytes.", method.name, maxArgumentLength);
    }
    return std::nullopt;
}

} // namespace vantrel
