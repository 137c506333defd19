// Installed applications by their desktop files: their names, and starting them.
#pragma once

#include <optional>
#include <string>

// `id` is a desktop-file id without ".desktop". A file that is hidden, or whose TryExec or Exec names no
// program that is there, counts as not installed.
namespace vantrel::DesktopLauncher {

[[nodiscard]] std::optional<std::string> name(const std::string& id);

// Starts it on its own: in a session of its own, in the user's home unless the file names a folder, without
// this program's descriptors, and not as a child of this process. When this process is restricted, in a unit
// of its own (UnrestrictedStart).
[[nodiscard]] bool start(const std::string& id);

// The same, but from this process however it is restricted.
[[nodiscard]] bool startHere(const std::string& id);

} // namespace vantrel::DesktopLauncher
