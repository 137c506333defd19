#include "VantrelCore/scenes/SceneProblem.h"

#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/text/Unicode.h"

namespace vantrel::SceneProblems {

SceneProblem from(SceneStoreError error, std::string_view name) {
    switch (error) {
    case SceneStoreError::capReached:
        return SceneProblem::capReached;
    case SceneStoreError::notFound:
        return SceneProblem::notFound;
    case SceneStoreError::writeFailed:
        return SceneProblem::writeFailed;
    case SceneStoreError::pinned:
        return SceneProblem::pinned;
    case SceneStoreError::invalidName:
        break;
    }
    if (Unicode::trimmed(name).empty()) {
        return SceneProblem::emptyName;
    }
    return SceneStore::isValidName(name) ? SceneProblem::nameUsed : SceneProblem::nameTooLong;
}

std::string_view panelText(SceneProblem problem) {
    switch (problem) {
    case SceneProblem::capReached:
        return "12 scenes max. Delete one to add another.";
    case SceneProblem::emptyName:
        return "A scene needs a name.";
    case SceneProblem::nameTooLong:
        return "Name must be 30 characters or fewer.";
    case SceneProblem::nameUsed:
        return "That name is used by another scene.";
    case SceneProblem::nameUsedOnAnotherDesk:
        return "That name is used by a scene on another desk.";
    case SceneProblem::pinned:
        return "That scene is pinned. Unpin it to update it.";
    case SceneProblem::notFound:
        return "That scene no longer exists.";
    case SceneProblem::writeFailed:
        break;
    }
    return "The scene could not be saved. Check the free space on your disk.";
}

std::string_view actionText(SceneProblem problem) {
    switch (problem) {
    case SceneProblem::capReached:
        return "This desk already has the maximum number of scenes.";
    case SceneProblem::nameUsedOnAnotherDesk:
        return "A scene on another desk already has that name.";
    case SceneProblem::pinned:
        return "That scene is pinned, so its layout never changes.";
    default:
        return panelText(problem);
    }
}

std::string_view nameFieldText(SceneProblem problem) {
    switch (problem) {
    case SceneProblem::emptyName:
        return "Empty scene name";
    case SceneProblem::nameUsedOnAnotherDesk:
        return "That name is used on another desk.";
    default:
        return panelText(problem);
    }
}

} // namespace vantrel::SceneProblems
