// The folders and files that the program uses for this user.
#pragma once

#include <filesystem>

namespace vantrel::UserFolders {

// The application-support folder: $XDG_DATA_HOME/Vantrel (~/.local/share/Vantrel when unset).
[[nodiscard]] std::filesystem::path supportDirectory();

[[nodiscard]] std::filesystem::path home();

// $XDG_DATA_HOME (~/.local/share when unset).
[[nodiscard]] std::filesystem::path data();

// $XDG_CONFIG_HOME/vantrel/settings.conf (~/.config/vantrel/settings.conf when unset).
[[nodiscard]] std::filesystem::path settingsFile();

// $XDG_CONFIG_HOME/autostart/vantrel.desktop (~/.config/autostart/vantrel.desktop when unset).
[[nodiscard]] std::filesystem::path autostartFile();

} // namespace vantrel::UserFolders
