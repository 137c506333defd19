// Qt's event loop inside a test program, and waiting in it.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vantrel::testing {

// Runs the event loop until `arrived` holds; false when it does not within ten seconds.
[[nodiscard]] bool waitFor(const std::function<bool()>& arrived);

// Handles what is pending, without waiting for more.
void handlePending();

// What has been told of event handlers that threw; taking it empties it.
[[nodiscard]] std::vector<std::string> takeThrown();

} // namespace vantrel::testing
