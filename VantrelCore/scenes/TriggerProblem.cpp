#include "VantrelCore/scenes/TriggerProblem.h"

#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/stores/TriggerStore.h"

#include <fmt/format.h>

namespace vantrel {

TriggerProblem triggerProblem(TriggerStoreError error) {
    switch (error) {
    case TriggerStoreError::capReached:
        return TriggerProblem::capReached;
    case TriggerStoreError::notFound:
        return TriggerProblem::notFound;
    case TriggerStoreError::writeFailed:
        break;
    }
    return TriggerProblem::writeFailed;
}

std::string text(TriggerProblem problem) {
    switch (problem) {
    case TriggerProblem::capReached:
        return fmt::format("{} triggers max. Delete one to add another.", TriggerStore::maxTriggers);
    case TriggerProblem::notFound:
        return "That trigger no longer exists.";
    case TriggerProblem::writeFailed:
        return "The triggers could not be written to disk. Nothing was changed.";
    case TriggerProblem::noScene:
        return std::string(SceneTriggerFormatting::noScenes);
    case TriggerProblem::sceneNotFound:
        return "That scene no longer exists.";
    case TriggerProblem::invalidTime:
        return "A time needs an hour from 0 to 23 and a minute from 0 to 59.";
    case TriggerProblem::noFocusName:
        return "A Focus needs a name.";
    }
    return "";
}

} // namespace vantrel
