// Waits for a condition, with a deadline far beyond the time needed on a busy machine.
#pragma once

#include <functional>

namespace vantrel::tools {

inline constexpr double generousSeconds = 30.0;

// Checks `condition` every few milliseconds; true as soon as it holds, false at the deadline.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition, double seconds = generousSeconds);

} // namespace vantrel::tools
