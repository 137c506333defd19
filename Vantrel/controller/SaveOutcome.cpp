#include "Vantrel/controller/SaveOutcome.h"

#include "Vantrel/controller/ControllerText.h"

namespace vantrel {

std::string SaveOutcome::text() const {
    switch (kind) {
    case Kind::saved:
        return ControllerText::windows(windows) + " remembered.";
    case Kind::restoreInFlight:
        return "A restore is running. Try again when it has finished.";
    case Kind::displaysChanging:
        return "The displays are changing. Try again when they have settled.";
    case Kind::noDisplays:
        return "No display is connected.";
    case Kind::needsPermission:
        return "The permission to read and move windows is missing.";
    case Kind::nothingToSave:
        return "This desk has no windows to remember.";
    case Kind::captureFailed:
        return "An error prevented reading the windows. Nothing was changed. See the log for details.";
    case Kind::invalidName:
        return "The name must have between 1 and 60 characters.";
    case Kind::pinned:
        return "That layout is pinned. Unpin it first.";
    case Kind::writeFailed:
        return "The layout could not be written to disk. Nothing was changed.";
    }
    return "";
}

} // namespace vantrel
