// The desk just before the last automatic restore or scene switch, so that the user can undo it. Kept in
// memory only.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <string>
#include <vector>

namespace vantrel {

struct UndoSlot {
    // Before the change.
    Layout layout;
    std::string configID;
    // What caused the change.
    std::string reason;
    // When the change happened.
    Date date;
    // Applications that the change hid and that undo must unhide.
    std::vector<std::string> hiddenBundleIDs;

    bool operator==(const UndoSlot&) const = default;
};

} // namespace vantrel
