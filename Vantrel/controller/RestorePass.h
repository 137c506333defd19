// The background part of a restore: wait for the window system, capture, pair and move.
#pragma once

#include "Vantrel/controller/DeskCapture.h"
#include "Vantrel/controller/MovePermit.h"
#include "Vantrel/controller/RestoreFollowUp.h"
#include "Vantrel/controller/RestoreRequest.h"
#include "Vantrel/controller/ScenePass.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"

#include <memory>
#include <optional>
#include <vector>

namespace vantrel::RestorePass {

// Values only, so that a worker can own it: the request's callbacks stay on the main thread.
struct Task {
    Layout layout;
    RestoreTrigger trigger = RestoreTrigger::manual;
    bool awaitsQuiet = false;
    std::optional<SceneOnDesk> scene;
    // Of an undo: the live windows that the layout's windows are, index by index.
    std::optional<std::vector<AXWindowHandle>> known;
    RestoreEngine::Options options;
    DeskCapture::Scope scope;
    std::shared_ptr<const MovePermit> permit;
};

// The desk as it was before anything moved.
struct Before {
    std::vector<CurrentWindow> windows;
    Date takenAt;
};

struct Result {
    RestoreReport report;
    // The windows that the restore brought to their places.
    std::vector<RestoreFollowUp::Moved> landed;
    // None unless the restore asked for sizes.
    std::vector<AppSizeBehaviorStore::Observation> sizes;
    // The permit was revoked before the end: the report does not tell how the desk stands.
    bool isAbandoned = false;
    // None of an undo, which came with its handles.
    std::optional<Before> before = std::nullopt;
    // Everything was in place already.
    bool changedNothing = false;
    // Windows that were not in place were asked to move, perhaps not all of them.
    bool hasMovedWindows = false;
    // Of a scene.
    std::optional<ScenePass::Result> scene = std::nullopt;
};

[[nodiscard]] Result run(const Task& task, Accessibility& accessibility, Clock& clock,
                         Background& background);

} // namespace vantrel::RestorePass
