// Names and starts installed applications by desktop file.
#pragma once

#include <optional>
#include <string>

// `id` is a desktop-file id without ".desktop". Files that are hidden, or whose TryExec or Exec names a
// missing program, count as not installed.
namespace vantrel::DesktopLauncher {

[[nodiscard]] std::optional<std::string> name(const std::string& id);

// Starts it in a new session, detached from this process and without our file descriptors. It runs in the
// user's home unless the file names a folder. If this process is restricted, it gets its own unit
// (UnrestrictedStart).
[[nodiscard]] bool start(const std::string& id);

// Does the same, but always from this process, even if it is restricted.
[[nodiscard]] bool startHere(const std::string& id);

} // namespace vantrel::DesktopLauncher
