#include "Vantrel/controller/LayoutChange.h"
#include "VantrelCore/text/Translation.h"

namespace vantrel {

std::string LayoutChange::text() const {
    switch (kind) {
    case Kind::done:
        return tr("Done.");
    case Kind::restoreInFlight:
        return tr("A restore is running. Try again when it has finished.");
    case Kind::noSuchLayout:
        return tr("This desk has no layout with that name.");
    case Kind::noLayout:
        return tr("No layout is saved for this desk yet. Save one first.");
    case Kind::invalidName:
        return tr("The name must have between 1 and 60 characters.");
    case Kind::nameTaken:
        return tr("This desk already has a layout with that name.");
    case Kind::writeFailed:
        return tr("The layouts could not be written to disk. Nothing was changed.");
    }
    return "";
}

} // namespace vantrel
