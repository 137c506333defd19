#include "Vantrel/controller/LayoutChange.h"

namespace vantrel {

std::string LayoutChange::text() const {
    switch (kind) {
    case Kind::done:
        return "Done.";
    case Kind::restoreInFlight:
        return "A restore is running. Try again when it has finished.";
    case Kind::noSuchLayout:
        return "This desk has no layout with that name.";
    case Kind::noLayout:
        return "No layout is saved for this desk yet. Save one first.";
    case Kind::invalidName:
        return "The name must have between 1 and 60 characters.";
    case Kind::nameTaken:
        return "This desk already has a layout with that name.";
    case Kind::writeFailed:
        return "The layouts could not be written to disk. Nothing was changed.";
    }
    return "";
}

} // namespace vantrel
