// Why a trigger was not added or changed, and the sentence that says so.
#pragma once

#include "VantrelCore/stores/TriggerStoreError.h"

#include <cstdint>
#include <string>

namespace vantrel {

enum class TriggerProblem : std::uint8_t {
    capReached,
    notFound,
    writeFailed,
    noScene,
    sceneNotFound,
    invalidTime,
    noFocusName,
};

[[nodiscard]] TriggerProblem triggerProblem(TriggerStoreError error);

[[nodiscard]] std::string text(TriggerProblem problem);

} // namespace vantrel
