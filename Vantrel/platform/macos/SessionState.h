// The state of the user's session, from the window server.
#pragma once

namespace vantrel::SessionState {

// Whether the screen is locked. False if the window server does not say.
[[nodiscard]] bool isLocked();

// Whether the main display sleeps. False without a display.
[[nodiscard]] bool areScreensAsleep();

} // namespace vantrel::SessionState
