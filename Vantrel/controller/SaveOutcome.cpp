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
        return "There is no display.";
    case Kind::needsPermission:
        return "The permission to read and move windows is missing.";
    case Kind::nothingToSave:
        return "There is no window to remember on this desk.";
    case Kind::captureFailed:
        return "The windows could not be read because of an error; the log has it. Nothing was changed.";
    case Kind::invalidName:
        return "A layout needs a name of at most 60 characters.";
    case Kind::pinned:
        return "That layout is pinned. Unpin it first.";
    case Kind::writeFailed:
        return "The layout could not be written to disk. Nothing was changed.";
    }
    return "";
}

} // namespace vantrel
