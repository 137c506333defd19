// Takes over what is stored for a desk when its displays come back under other identifiers, and joins two
// desks that the user says are the same.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/ControllerStores.h"
#include "Vantrel/controller/DeskJoining.h"
#include "VantrelCore/displays/SameDesk.h"
#include "VantrelCore/stores/Saving.h"

#include <functional>
#include <string>
#include <vector>

namespace vantrel {

class SameDeskFlow {
public:
    // The stores outlive this object.
    SameDeskFlow(ControllerContext& context, ControllerStores& stores)
        : m_context(context), m_stores(stores) {}

    // These displays are about to be published. Layouts, scenes and stashes of the desk that they certainly
    // are move to `configID`; a desk that they may be is published as an offer.
    void arrive(const std::string& configID, const std::vector<DisplayInfo>& displays);

    // The user says that these desks are the same, each given by its name or configID; if both are empty, the
    // current desk and the one on offer. What is stored moves
    // to the current desk, if it is one of them. Where both have a layout of one name, the other desk's
    // keeps it.
    [[nodiscard]] DeskJoining join(const std::string& first, const std::string& second);

    // Called when stored records have moved.
    std::function<void()> onMoved = [] {};
    // Called when all that was stored for a desk has moved to another identifier.
    std::function<void(const std::string& from, const std::string& to,
                       const std::vector<DisplayInfo>& displays)>
        onDeskMoved = [](const auto&...) {};

private:
    bool moveDesk(const std::string& from, const std::string& to, const std::vector<DisplayInfo>& displays,
                  const Saving& saving);
    void offer(const std::optional<SameDesk::Remembered>& desk);

    ControllerContext& m_context;
    ControllerStores& m_stores;
};

} // namespace vantrel
