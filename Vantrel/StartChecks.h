// What is checked before the program touches a desk, and what it says to the terminal that started it.
#pragma once

#include "Vantrel/platform/posix/InstanceLock.h"

#include <QDBusConnection>

#include <cstdint>
#include <expected>
#include <string>
#include <system_error>
#include <vector>

namespace vantrel::StartChecks {

enum class ExitCode : std::uint8_t { done = 0, failed = 1, usage = 2, alreadyRunning = 3 };

void say(const std::string& sentence);
// Prints the sentence to stderr and returns the code.
ExitCode complain(const std::string& sentence, ExitCode code = ExitCode::failed);

// Empty when the variable is not set.
[[nodiscard]] std::string environment(const char* variable);

[[nodiscard]] bool isWaylandSession();
// In a Wayland session, says that only X11 programs can be seen.
void explainWayland();

// Fails if there is none, or if another instance is on it, whose panel is then opened.
[[nodiscard]] std::expected<QDBusConnection, ExitCode> joinSessionBus();

// True if another instance is on the bus; raiseFirstInstance() opens its panel.
[[nodiscard]] bool isServiceRegistered(const QDBusConnection& bus);
ExitCode raiseFirstInstance();

// The folders of this user that the program writes, locked for as long as this exists.
struct OwnFolders {
    std::vector<InstanceLock> locks{};
    // Lines for the log on what was moved from where older versions kept it.
    std::vector<std::string> moves{};

    // Why a folder is not locked.
    [[nodiscard]] std::error_code problem() const;
};

// Creates the folders if they are missing. Fails if another instance on another bus uses one of them.
[[nodiscard]] std::expected<OwnFolders, ExitCode> takeFolders();

} // namespace vantrel::StartChecks
