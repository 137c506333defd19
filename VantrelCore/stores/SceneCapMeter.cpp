#include "VantrelCore/stores/SceneCapMeter.h"

#include "VantrelCore/stores/SceneStore.h"

#include <fmt/format.h>

namespace vantrel::SceneCapMeter {

std::string label(std::size_t count) {
    return fmt::format("{} of {}", count, SceneStore::maxScenes);
}

} // namespace vantrel::SceneCapMeter
