// The applications that are installed, as the desktop's menus list them.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Identifiers (desktop-file ids without their extension) and names, in no particular order.
[[nodiscard]] std::vector<std::pair<std::string, std::string>> installedApplications();

} // namespace vantrel
