// The folders and files that the program uses for this user.
#pragma once

#include <filesystem>
#include <vector>

namespace vantrel::UserFolders {

// The application-support folder: $XDG_DATA_HOME/vantrel (~/.local/share/vantrel when unset).
[[nodiscard]] std::filesystem::path supportDirectory();

// Where older versions kept what is now in supportDirectory() and stateDirectory().
[[nodiscard]] std::filesystem::path olderSupportDirectory();

// The log and the program's notes: $XDG_STATE_HOME/vantrel (~/.local/state/vantrel when unset).
[[nodiscard]] std::filesystem::path stateDirectory();

[[nodiscard]] std::filesystem::path home();

// $XDG_DATA_HOME (~/.local/share when unset).
[[nodiscard]] std::filesystem::path data();

// That and the system's: $XDG_DATA_DIRS (/usr/local/share and /usr/share when unset).
[[nodiscard]] std::vector<std::filesystem::path> allData();

// $XDG_CACHE_HOME/thumbnails (~/.cache/thumbnails when unset), which all programs of the user share.
[[nodiscard]] std::filesystem::path thumbnails();

// $XDG_CONFIG_HOME/vantrel/settings.conf (~/.config/vantrel/settings.conf when unset).
[[nodiscard]] std::filesystem::path settingsFile();

// $XDG_CONFIG_HOME/autostart/vantrel.desktop (~/.config/autostart/vantrel.desktop when unset).
[[nodiscard]] std::filesystem::path autostartFile();

} // namespace vantrel::UserFolders
