// The part of a scene's restore that a plain restore has not: live windows take the scene's open slots, and
// the applications are named that would have to be started for the others. Runs in the background.
#pragma once

#include "Vantrel/controller/MovePermit.h"
#include "Vantrel/controller/SlotFilling.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::ScenePass {

// How the restore left the desk.
struct Desk {
    const std::vector<CurrentWindow>& live;
    // Between the scene's layout and `live`.
    const MatchResult& matched;
    const DeskCapture::Scope& scope;
    RestoreEngine::Sizes sizes = RestoreEngine::Sizes::restore;
    std::shared_ptr<const MovePermit> permit;
};

struct Result {
    SlotFilling::Result slots;
    // Which item of the report tells of a slot, by the slot's index.
    std::map<std::int64_t, std::size_t> itemOfSlot;
    // The regular applications that run and that no rule ignores, each once, in the platform's order.
    std::vector<std::string> runningBundleIDs;
};

// `report` is the restore's, with an item for each of the layout's windows; afterwards it tells of the slots
// as well.
[[nodiscard]] Result run(const SceneOnDesk& scene, const Desk& desk, RestoreReport& report,
                         Accessibility& accessibility, Clock& clock, Background& background);

} // namespace vantrel::ScenePass
