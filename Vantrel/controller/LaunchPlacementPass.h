// The background part of launch placement: find the windows of the started application, and move them.
#pragma once

#include "Vantrel/controller/MovePermit.h"
#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Accessibility.h"
#include "VantrelCore/ports/Background.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/windows/RestoreEngine.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel::LaunchPlacementPass {

// Values only, so that a worker can own it.
struct Task {
    // With its bundle identifier.
    RunningApp app;
    std::vector<AppRule> rules;
    std::optional<Layout> layout;
    std::vector<DisplayInfo> displays;
    RestoreEngine::Sizes sizes = RestoreEngine::Sizes::restore;
    std::shared_ptr<const MovePermit> permit;
};

struct Result {
    // The application's standard windows that can be seen.
    std::size_t windows = 0;
    std::size_t moved = 0;
    std::size_t failed = 0;
    // The permit was revoked before the end.
    bool isAbandoned = false;
};

[[nodiscard]] Result run(const Task& task, Accessibility& accessibility, Clock& clock,
                         Background& background);

} // namespace vantrel::LaunchPlacementPass
