// The menu's line about the most recent restore.
#pragma once

#include "VantrelCore/model/LastAction.h"

#include <string>

namespace vantrel::LastActionFormatting {

// "Restored 1 window · 5m ago".
[[nodiscard]] std::string line(const LastAction& action, Date now);

} // namespace vantrel::LastActionFormatting
