// Whether the program starts with the user's session: its login item in System Settings.
#pragma once

#include <string>

namespace vantrel::LoginItem {

// Empty when it is so, or was already; else a sentence for the log.
[[nodiscard]] std::string setLaunchAtLogin(bool launches);

} // namespace vantrel::LoginItem
