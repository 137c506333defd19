#include "Vantrel/controller/SaveOutcome.h"

#include "VantrelCore/text/Translation.h"

namespace vantrel {

std::string SaveOutcome::text() const {
    switch (kind) {
    case Kind::saved:
        return trn("{} window remembered.", "{} windows remembered.", static_cast<std::int64_t>(windows));
    case Kind::restoreInFlight:
        return tr("A restore is running. Try again when it has finished.");
    case Kind::displaysChanging:
        return tr("The displays are changing. Try again when they have settled.");
    case Kind::noDisplays:
        return tr("No display is connected.");
    case Kind::needsPermission:
        return tr("The permission to read and move windows is missing.");
    case Kind::nothingToSave:
        return tr("This desk has no windows to remember.");
    case Kind::captureFailed:
        return tr("An error prevented reading the windows. Nothing was changed. See the log for details.");
    case Kind::invalidName:
        return tr("The name must have between 1 and 60 characters.");
    case Kind::pinned:
        return tr("That layout is pinned. Unpin it first.");
    case Kind::writeFailed:
        return tr("The layout could not be written to disk. Nothing was changed.");
    }
    return "";
}

} // namespace vantrel
