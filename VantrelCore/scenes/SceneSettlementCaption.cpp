#include "VantrelCore/scenes/SceneSettlementCaption.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel::SceneSettlementCaption {

namespace {

std::string nameList(const std::vector<std::string>& names) {
    switch (names.size()) {
    case 1:
        return names[0];
    case 2:
        return trf("{} and {}", names[0], names[1]);
    default:
        return trf("{} and {} more", names[0], names.size() - 1);
    }
}

} // namespace

std::string detail(std::int64_t opened, std::int64_t placed, const std::vector<std::string>& stragglers) {
    std::string caption = trf("opened {}, placed {}", opened, placed);
    if (!stragglers.empty()) {
        caption += " · " + trf("{} did not finish opening", nameList(stragglers));
    }
    return caption;
}

} // namespace vantrel::SceneSettlementCaption
