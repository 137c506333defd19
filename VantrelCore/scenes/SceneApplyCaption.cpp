#include "VantrelCore/scenes/SceneApplyCaption.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel::SceneApplyCaption {

std::string detail(std::int64_t moved, std::int64_t opened, std::int64_t notOpen) {
    if (opened > 0) {
        return moved > 0 ? trf("moved {}, opened {}", moved, opened)
                         : trn("opened {} app", "opened {} apps", opened);
    }
    if (notOpen > 0) {
        const std::string closed = trn("{} app not open", "{} apps not open", notOpen);
        return moved > 0 ? trf("moved {} · {}", moved, closed) : closed;
    }
    return trn("{} window", "{} windows", moved);
}

} // namespace vantrel::SceneApplyCaption
