// The background part of a restore: waits for the window system, captures, matches and moves windows.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "Vantrel/controller/RestoreFollowUp.h"
#include "Vantrel/controller/RestoreRequest.h"
#include "Vantrel/controller/ScenePass.h"
#include "VantrelCore/ports/Workspace.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/windows/StrayPlaces.h"
#include "VantrelCore/windows/WindowPairing.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::RestorePass {

// Values only, so that a worker can own it.
struct Task {
    RestoreRequest request;
    // The live windows that are known to be some of the layout's. Unused by an undo, which names its windows.
    WindowPairing::Known identities;
    DeskCapture::Reach reach = DeskCapture::Reach::visible;
    RestoreEngine::Options options;
    DeskCapture::Scope scope;
    std::shared_ptr<const MovePermit> permit;
};

// The desk as it was before anything moved.
struct Before {
    std::vector<LiveWindow> windows;
    Date takenAt;
};

struct Result {
    RestoreReport report;
    // The windows that the restore moved or tried to move.
    std::vector<RestoreFollowUp::Kept> kept;
    // Empty unless the restore set sizes.
    std::vector<AppSizeBehaviorStore::Observation> sizes;
    // The windows that are there, but could not be reached.
    std::vector<StrayPlaces::Unreached> unreached = {};
    // The permit was revoked before the end, so the report does not describe the desk.
    bool isAbandoned = false;
    // None for an undo, which names its windows.
    std::optional<Before> before = std::nullopt;
    // Everything was already in place.
    bool changedNothing = false;
    // At least some of the windows that were not in place were asked to move.
    bool hasMovedWindows = false;
    // For a scene.
    std::optional<ScenePass::Result> scene = std::nullopt;
    // How many applications were shown again at the start.
    std::size_t unhidden = 0;
    // The applications that were hidden at the end.
    std::vector<std::string> hiddenBundleIDs = {};
};

[[nodiscard]] Result run(const Task& task, Desk& desk, Workspace& workspace, Clock& clock);

} // namespace vantrel::RestorePass
