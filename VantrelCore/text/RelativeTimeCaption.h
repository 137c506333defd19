// The age of a date in a few characters: "just now", "5m ago", "3h ago", "2d ago".
#pragma once

#include "VantrelCore/model/Date.h"

#include <string>

namespace vantrel::RelativeTimeCaption {

// A future date is also "just now".
[[nodiscard]] std::string caption(Date from, Date now);

} // namespace vantrel::RelativeTimeCaption
