// The user's session as the window server knows it.
#pragma once

namespace vantrel::SessionState {

// Whether the screen is locked now; false where the window server does not say.
[[nodiscard]] bool isLocked();

} // namespace vantrel::SessionState
