// What went wrong with a scene, in the words of the surface that tells the user.
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

// `name` is the one that was asked for: it tells why it is invalid. A name that is invalid though neither
// empty nor too long is another scene's.
[[nodiscard]] SceneProblem from(SceneStoreError error, std::string_view name);

// In the menu panel and the settings.
[[nodiscard]] std::string_view panelText(SceneProblem problem);

// Said by an action (Shortcuts).
[[nodiscard]] std::string_view actionText(SceneProblem problem);

// Beside the name while it is typed in the scenes tab.
[[nodiscard]] std::string_view nameFieldText(SceneProblem problem);

} // namespace SceneProblems

} // namespace vantrel
