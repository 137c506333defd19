// A crash on purpose, to try crash reporting and sending from end to end.
#pragma once

#include "VantrelCore/ports/MainQueue.h"

#include <memory>

namespace vantrel::CrashTest {

inline constexpr const char* environmentVariable = "VANTREL_CRASH_TEST";
inline constexpr double delaySeconds = 2.0;

// `value` is the environment variable's, null when it is not set. Null unless it asks for the crash, which
// then comes `delaySeconds` from now.
[[nodiscard]] std::unique_ptr<ScheduledWork> schedule(MainQueue& queue, const char* value);

} // namespace vantrel::CrashTest
