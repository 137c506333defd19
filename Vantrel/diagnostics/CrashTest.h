// Crashes on purpose, to test crash reporting and uploading end to end.
#pragma once

#include "VantrelCore/ports/MainQueue.h"

#include <memory>

namespace vantrel::CrashTest {

inline constexpr const char* environmentVariable = "VANTREL_CRASH_TEST";
inline constexpr double delaySeconds = 2.0;

// `value` is the environment variable's value, null when unset. Returns null unless it requests the crash,
// which then happens `delaySeconds` from now.
[[nodiscard]] std::unique_ptr<ScheduledWork> schedule(MainQueue& queue, const char* value);

} // namespace vantrel::CrashTest
