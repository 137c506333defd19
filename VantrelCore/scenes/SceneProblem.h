// What went wrong with a scene, worded for each place where it is shown.
#pragma once

#include "VantrelCore/stores/SceneStoreError.h"

#include <string_view>

namespace vantrel {

enum class SceneProblem {
    capReached,
    emptyName,
    nameTooLong,
    nameUsed,
    nameUsedOnAnotherDesk,
    pinned,
    notFound,
    writeFailed,
};

namespace SceneProblems {

// `name` is the requested name; it shows why it was invalid. If it is neither empty nor too long, another
// scene has it.
[[nodiscard]] SceneProblem from(SceneStoreError error, std::string_view name);

// In the menu panel and the settings.
[[nodiscard]] std::string_view panelText(SceneProblem problem);

// For an action (Shortcuts).
[[nodiscard]] std::string_view actionText(SceneProblem problem);

// Beside the name field while the user types in the scenes tab.
[[nodiscard]] std::string_view nameFieldText(SceneProblem problem);

} // namespace SceneProblems

} // namespace vantrel
