// The session of the fake window server.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <optional>

namespace vantrel::fake {

// Sets the session's properties. None means that there is no window server, which is the initial state of a
// test.
void setSession(std::optional<std::vector<std::pair<std::string, Value>>> entries);

} // namespace vantrel::fake
