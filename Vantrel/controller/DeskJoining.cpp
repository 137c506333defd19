#include "Vantrel/controller/DeskJoining.h"
#include "VantrelCore/text/Translation.h"

#include <fmt/format.h>

namespace vantrel {

std::string DeskJoining::text() const {
    switch (kind) {
    case Kind::done:
        return tr("From now on, the two are one desk.");
    case Kind::noSuchDesk:
        return trf("No desk, or more than one, is called \"{}\". Nothing was changed. "
                   "To list the desks with their IDs: vantrelctl desks --json",
                   name);
    case Kind::alreadyOne:
        return tr("These are already one desk.");
    case Kind::nothingOffered:
        return tr("No remembered desk has the same displays on other connectors.");
    case Kind::differentDisplays:
        return tr("These desks have displays of other models, sizes or places. Nothing was changed.");
    case Kind::restoreInFlight:
        return tr("A restore is running. Nothing was changed; try again when it has finished.");
    case Kind::writeFailed:
        break;
    }
    return tr("The desks could not be written. Nothing was changed.");
}

} // namespace vantrel
