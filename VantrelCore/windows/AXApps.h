// Selects the applications whose windows are captured and restored.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <optional>
#include <string_view>
#include <vector>

namespace vantrel::AXApps {

// The applications with regular activation policy and a bundle identifier, except `excluding`, in the given
// order.
[[nodiscard]] std::vector<RunningApp> regularApps(std::vector<RunningApp> running,
                                                  std::optional<std::string_view> excluding);

} // namespace vantrel::AXApps
