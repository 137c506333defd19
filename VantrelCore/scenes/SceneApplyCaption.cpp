#include "VantrelCore/scenes/SceneApplyCaption.h"

#include "VantrelCore/text/CountedNoun.h"

#include <fmt/format.h>

namespace vantrel::SceneApplyCaption {

std::string detail(std::int64_t moved, std::int64_t opened, std::int64_t notOpen) {
    if (opened > 0) {
        return moved > 0 ? fmt::format("moved {}, opened {}", moved, opened)
                         : "opened " + countedNoun(opened, "app");
    }
    if (notOpen > 0) {
        const std::string closed = countedNoun(notOpen, "app") + " not open";
        return moved > 0 ? fmt::format("moved {} · {}", moved, closed) : closed;
    }
    return countedNoun(moved, "window");
}

} // namespace vantrel::SceneApplyCaption
