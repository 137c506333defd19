#include "VantrelCore/scenes/TriggerProblem.h"

#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/text/Translation.h"

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
        return trf("{} triggers max. Delete one to add another.", TriggerStore::maxTriggers);
    case TriggerProblem::notFound:
        return tr("That trigger no longer exists.");
    case TriggerProblem::writeFailed:
        return tr("The triggers could not be written to disk. Nothing was changed.");
    case TriggerProblem::noScene:
        return tr(SceneTriggerFormatting::noScenes);
    case TriggerProblem::sceneNotFound:
        return tr("That scene no longer exists.");
    case TriggerProblem::invalidTime:
        return tr("A time needs an hour from 0 to 23 and a minute from 0 to 59.");
    case TriggerProblem::noFocusName:
        return tr("A Focus needs a name.");
    }
    return "";
}

} // namespace vantrel
