// Qt's event loop inside a test program, and waiting in it.
#pragma once

#include <functional>

namespace vantrel::testing {

// Runs the event loop until `arrived` holds; false when it does not within ten seconds.
[[nodiscard]] bool waitFor(const std::function<bool()>& arrived);

// Handles what is pending, without waiting for more.
void handlePending();

} // namespace vantrel::testing
