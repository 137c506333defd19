// Which running applications count.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <optional>
#include <string_view>
#include <vector>

namespace vantrel::AXApps {

// The applications with regular activation policy and a bundle identifier, in the given order, without the
// one whose identifier is `excluding`.
[[nodiscard]] std::vector<RunningApp> regularApps(std::vector<RunningApp> running,
                                                  std::optional<std::string_view> excluding);

} // namespace vantrel::AXApps
