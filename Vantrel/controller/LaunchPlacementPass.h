// The background part of launch placement: finds the windows of the started application and moves them.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/Desk.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace vantrel::LaunchPlacementPass {

// Values only, so that a worker can own it.
struct Task {
    // Has a bundle identifier.
    RunningApp app;
    std::vector<AppRule> rules;
    std::optional<Layout> layout;
    std::vector<DisplayInfo> displays;
    RestoreEngine::Sizes sizes = RestoreEngine::Sizes::restore;
};

struct Result {
    // The number of visible standard windows of the application.
    std::size_t windows = 0;
    std::size_t moved = 0;
    std::size_t failed = 0;
    // The permit was revoked before the pass ended.
    bool isAbandoned = false;
};

[[nodiscard]] Result run(const Task& task, Desk& desk, const MovePermit& permit, Clock& clock);

} // namespace vantrel::LaunchPlacementPass
