// Manages the program's login item, which starts it at login.
#pragma once

#include <string>

namespace vantrel::LoginItem {

// Returns an empty string on success or if nothing had to change, otherwise a message for the log.
[[nodiscard]] std::string setLaunchAtLogin(bool launches);

} // namespace vantrel::LoginItem
