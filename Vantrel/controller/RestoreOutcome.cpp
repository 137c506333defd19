#include "Vantrel/controller/RestoreOutcome.h"

#include "VantrelCore/text/Translation.h"

namespace vantrel {

std::string RestoreOutcome::text() const {
    switch (kind) {
    case Kind::finished:
        return trn("{} window put back.", "{} windows put back.",
                   static_cast<std::int64_t>(report.restoredCount()));
    case Kind::switchedOff:
        return tr("Restoring is switched off.");
    case Kind::needsPermission:
        return tr("The permission to read and move windows is missing.");
    case Kind::notEntitled:
        return tr("The license does not allow moving windows.");
    case Kind::displaysChanging:
        return tr("The displays are changing. Try again when they have settled.");
    case Kind::nothingStored:
        return tr("Nothing is remembered for this desk yet.");
    case Kind::noSuchLayout:
        return tr("There is no layout with that name.");
    case Kind::noSuchStash:
        return tr("That stash no longer exists.");
    case Kind::emptyLayout:
        return tr("It contains no windows.");
    case Kind::restoreInFlight:
        return tr("A restore is running. Try again when it has finished.");
    case Kind::writeFailed:
        return tr("The change could not be written to disk. Nothing was changed.");
    case Kind::nothingToUndo:
        return tr("There is nothing to undo.");
    case Kind::undoElsewhere:
        return tr("There is nothing to undo on this desk. The last restore was on another one.");
    case Kind::superseded:
        return tr("A newer restore took its place.");
    case Kind::failed:
        return tr("An error stopped the restore. Some windows may have been moved. See the log for details.");
    }
    return "";
}

} // namespace vantrel
