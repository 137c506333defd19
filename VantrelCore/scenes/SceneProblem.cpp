#include "VantrelCore/scenes/SceneProblem.h"

#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/text/Translation.h"
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
        return tr("12 scenes max. Delete one to add another.");
    case SceneProblem::emptyName:
        return tr("A scene needs a name.");
    case SceneProblem::nameTooLong:
        return tr("Name must be 30 characters or fewer.");
    case SceneProblem::nameUsed:
        return tr("That name is used by another scene.");
    case SceneProblem::nameUsedOnAnotherDesk:
        return tr("That name is used by a scene on another desk.");
    case SceneProblem::pinned:
        return tr("That scene is pinned. Unpin it to update it.");
    case SceneProblem::notFound:
        return tr("That scene no longer exists.");
    case SceneProblem::writeFailed:
        break;
    }
    return tr("The scene could not be saved. Check the free space on your disk.");
}

std::string_view actionText(SceneProblem problem) {
    switch (problem) {
    case SceneProblem::capReached:
        return tr("This desk already has the maximum number of scenes.");
    case SceneProblem::nameUsedOnAnotherDesk:
        return tr("A scene on another desk already has that name.");
    case SceneProblem::pinned:
        return tr("That scene is pinned, so its layout never changes.");
    default:
        return panelText(problem);
    }
}

std::string_view nameFieldText(SceneProblem problem) {
    switch (problem) {
    case SceneProblem::emptyName:
        return tr("Empty scene name");
    case SceneProblem::nameUsedOnAnotherDesk:
        return tr("That name is used on another desk.");
    default:
        return panelText(problem);
    }
}

} // namespace vantrel::SceneProblems
