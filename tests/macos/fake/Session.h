// The fake window server's session.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <optional>

namespace vantrel::fake {

// What it says of the session, by key; none: there is no window server, as before the first call of a test.
void setSession(std::optional<std::vector<std::pair<std::string, Value>>> entries);

} // namespace vantrel::fake
