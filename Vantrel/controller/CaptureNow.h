// The desk as it stands now, captured at once because the user wants to keep it. Needs no license: only
// learning and restoring do.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/SaveOutcome.h"

#include <expected>
#include <functional>

namespace vantrel::CaptureNow {

// A layout with at least one window, or why there is none.
using Result = std::expected<Layout, SaveOutcome::Kind>;

// Captures in the background, as soon as nothing else reads the desk. `done` is called once on the main
// thread, also when it is refused.
void perform(ControllerContext& context, std::function<void(const Result&)> done);

} // namespace vantrel::CaptureNow
