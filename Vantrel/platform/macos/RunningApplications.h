// The running applications as the workspace lists them.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <vector>

namespace vantrel::RunningApplications {

// In the platform's order, whatever their policy. May be called on any thread.
[[nodiscard]] std::vector<RunningApp> read();

} // namespace vantrel::RunningApplications
