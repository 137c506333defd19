// Starts unrestricted programs from a restricted process. Our packaged systemd unit restricts this process,
// and children inherit that, which breaks browsers and sudo. So we have the user's systemd start them.
#pragma once

#include <string>
#include <vector>

namespace vantrel::UnrestrictedStart {

// The option that makes a new instance of this program start an application (DesktopLauncher::startHere).
inline constexpr const char* applicationOption = "--start-application";

// True if this process has no_new_privs set, which any restriction by the user's systemd implies, and that
// systemd is available.
[[nodiscard]] bool isNeeded();

// Has the user's systemd run the command in its own unit. If that fails, runs the command from here. Does not
// wait. Returns false if nothing was started.
[[nodiscard]] bool run(std::vector<std::string> command);

// Runs this program with the given arguments in the same way.
[[nodiscard]] bool runSelf(std::vector<std::string> arguments);

} // namespace vantrel::UnrestrictedStart
