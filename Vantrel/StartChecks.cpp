#include "Vantrel/StartChecks.h"

#include "Vantrel/StartSentences.h"
#include "Vantrel/commands/ControlClient.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"

#include <QDBusConnectionInterface>

#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>

namespace vantrel::StartChecks {

namespace {

// The name was not found on this bus, so the lock's holder is on another one.
ExitCode complainAboutSharedFolder(const std::filesystem::path& folder, const InstanceLock::Holder& holder) {
    return complain(
        fmt::format(
            "Another vantrel{} is already running on a different session bus and keeps its layouts in "
            "{}. Two would overwrite each other's files, so this one quits. Stop the other one, or "
            "give this one its own folder with XDG_DATA_HOME.",
            holder.empty() ? "" : " (" + holder + ")", folder.string()),
        ExitCode::alreadyRunning);
}

} // namespace

void say(const std::string& sentence) {
    fmt::print(stderr, "vantrel: {}\n", sentence);
}

ExitCode complain(const std::string& sentence, ExitCode code) {
    say(sentence);
    return code;
}

std::string environment(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr ? value : "";
}

bool isWaylandSession() {
    return !environment("WAYLAND_DISPLAY").empty();
}

void explainWayland() {
    if (isWaylandSession()) {
        say("This is a Wayland session: only the windows of X11 programs can be seen and moved, not "
            "those of Wayland programs.");
    }
}

std::expected<QDBusConnection, ExitCode> joinSessionBus() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return std::unexpected(complain("There is no session bus (DBUS_SESSION_BUS_ADDRESS): " +
                                        bus.lastError().message().toStdString()));
    }
    if (isServiceRegistered(bus)) {
        return std::unexpected(raiseFirstInstance());
    }
    return bus;
}

bool isServiceRegistered(const QDBusConnection& bus) {
    return bus.interface()->isServiceRegistered(ControlNames::service);
}

// Users who start it a second time want to see it.
ExitCode raiseFirstInstance() {
    if (ControlClient::call("ShowPanel", {}, ControlClient::Patience::brief)) {
        say("Vantrel is already running; its panel is open now.");
        return ExitCode::done;
    }
    return complain("Vantrel is already running. Check it with: vantrelctl status", ExitCode::alreadyRunning);
}

std::expected<InstanceLock, ExitCode> lockFolder(const std::filesystem::path& folder) {
    if (const auto error = PosixFileSystem().createDirectories(folder)) {
        return std::unexpected(complain(folderIsUnusable(folder, error)));
    }
    auto lock = InstanceLock::take(folder);
    if (!lock) {
        return std::unexpected(complainAboutSharedFolder(folder, lock.error()));
    }
    return std::move(*lock);
}

} // namespace vantrel::StartChecks
