// Lists the running applications from the shared workspace.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <vector>

namespace vantrel::RunningApplications {

// In the platform's order, with any policy. Thread-safe.
[[nodiscard]] std::vector<RunningApp> read();

} // namespace vantrel::RunningApplications
