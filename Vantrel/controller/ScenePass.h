// The part of a restore that only scenes need: fills the scene's open slots with live windows and lists the
// applications to start for the rest. Runs in the background.
#pragma once

#include "Vantrel/controller/SlotFilling.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace vantrel::ScenePass {

// The desk after the restore.
struct RestoredDesk {
    const std::vector<LiveWindow>& live;
    // Pairs the scene's layout with `live`.
    const MatchResult& matched;
    const DeskCapture::Scope& scope;
    RestoreEngine::Sizes sizes = RestoreEngine::Sizes::restore;
    const MovePermit& permit;
};

struct Result {
    SlotFilling::Result slots;
    // Maps a slot's index to its item in the report.
    std::map<std::int64_t, std::size_t> itemOfSlot;
    // The running regular applications that no rule ignores, each once, in the platform's order.
    std::vector<std::string> runningBundleIDs;
};

// `report` comes from the restore, with an item for each of the layout's windows; run() adds the slots.
[[nodiscard]] Result run(const SceneOnDesk& scene, const RestoredDesk& restored, RestoreReport& report,
                         Desk& desk, Clock& clock);

} // namespace vantrel::ScenePass
