// Starts programs for the user from a process that is restricted itself, as packaging's systemd unit
// restricts it. What a restricted process starts inherits that, and a browser or sudo then fails; so the
// user's systemd starts it.
#pragma once

#include <string>
#include <vector>

namespace vantrel::UnrestrictedStart {

// The argument with which this program, run anew, starts an application (DesktopLauncher::startHere).
inline constexpr const char* applicationOption = "--start-application";

// Whether this process may gain no privileges, which every restriction by a user's systemd implies, and that
// systemd is there to ask.
[[nodiscard]] bool isNeeded();

// Has the user's systemd run the command, in a unit of its own; if it refuses, the command runs here. Returns
// at once, false when nothing was started.
[[nodiscard]] bool run(std::vector<std::string> command);

// The same for this program with these arguments.
[[nodiscard]] bool runSelf(std::vector<std::string> arguments);

} // namespace vantrel::UnrestrictedStart
