// Captures the desk immediately because the user wants to save it. Needs no license; only learning and
// restoring do.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/SaveOutcome.h"

#include <expected>
#include <functional>

namespace vantrel::CaptureNow {

// A layout with at least one window, or why there is none.
using Result = std::expected<Layout, SaveOutcome::Kind>;

// Captures in the background as soon as nothing else is reading the desk, and notes which windows the
// layout's are. `done` is called once on the main thread, even when the capture is refused.
void perform(ControllerContext& context, DeskCapture::Reach reach, std::function<void(const Result&)> done);

} // namespace vantrel::CaptureNow
