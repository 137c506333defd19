#include "Vantrel/controller/RestoreOutcome.h"

#include "Vantrel/controller/ControllerText.h"

namespace vantrel {

std::string RestoreOutcome::text() const {
    switch (kind) {
    case Kind::finished:
        return ControllerText::windows(report.restoredCount()) + " put back.";
    case Kind::switchedOff:
        return "Restoring is switched off.";
    case Kind::needsPermission:
        return "The permission to read and move windows is missing.";
    case Kind::notEntitled:
        return "The license does not allow moving windows.";
    case Kind::displaysChanging:
        return "The displays are changing. Try again when they have settled.";
    case Kind::nothingStored:
        return "Nothing is remembered for this desk yet.";
    case Kind::noSuchLayout:
        return "There is no layout with that name.";
    case Kind::noSuchStash:
        return "That stash no longer exists.";
    case Kind::emptyLayout:
        return "It contains no windows.";
    case Kind::restoreInFlight:
        return "A restore is running. Try again when it has finished.";
    case Kind::writeFailed:
        return "The change could not be written to disk. Nothing was changed.";
    case Kind::nothingToUndo:
        return "There is nothing to undo.";
    case Kind::undoElsewhere:
        return "There is nothing to undo on this desk. The last restore was on another one.";
    case Kind::superseded:
        return "A newer restore took its place.";
    case Kind::failed:
        return "An error stopped the restore. Some windows may have been moved. See the log for details.";
    }
    return "";
}

} // namespace vantrel
