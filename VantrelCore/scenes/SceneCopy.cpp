#include "VantrelCore/scenes/SceneCopy.h"

#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::SceneCopy {

namespace {

std::string_view suffix() {
    return tr(" copy");
}

// Without " copy" or " copy 2" at its end.
std::string_view withoutSuffix(std::string_view name) {
    std::string_view rest = name;
    while (!rest.empty() && rest.back() >= '0' && rest.back() <= '9') {
        rest.remove_suffix(1);
    }
    const bool isNumbered = rest.size() < name.size() && rest.ends_with(' ');
    rest = isNumbered ? rest.substr(0, rest.size() - 1) : name;
    return rest.ends_with(suffix()) && rest.size() > suffix().size()
               ? rest.substr(0, rest.size() - suffix().size())
               : name;
}

} // namespace

std::string name(std::string_view original, const std::function<bool(const std::string&)>& isTaken) {
    const std::string_view stem = withoutSuffix(Unicode::trimmed(original));
    for (int number = 1;; ++number) {
        const std::string end = std::string(suffix()) + (number == 1 ? "" : fmt::format(" {}", number));
        const auto room = SceneStore::maxNameLength - end.size();
        std::string copy = std::string(Unicode::trimmed(Unicode::prefix(stem, room))) + end;
        if (!isTaken(copy)) {
            return copy;
        }
    }
}

} // namespace vantrel::SceneCopy
