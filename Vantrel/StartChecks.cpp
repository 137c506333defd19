#include "Vantrel/StartChecks.h"

#include "Vantrel/StartSentences.h"
#include "Vantrel/commands/ControlClient.h"
#include "Vantrel/commands/ControlNames.h"
#include "Vantrel/platform/posix/FolderMove.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "Vantrel/platform/qt/UserFolders.h"
#include "VantrelCore/text/Translation.h"

#include <QDBusConnectionInterface>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fmt/format.h>
#include <iterator>
#include <optional>

namespace vantrel::StartChecks {

namespace {

// The name was not found on this bus, so the lock's holder is on another one.
ExitCode complainAboutSharedFolder(const std::filesystem::path& folder, const InstanceLock::Holder& holder) {
    return complain(
        trf("Another vantrel{} is already running on a different session bus and keeps its files in "
            "{}. Two would overwrite each other's files, so this one quits. Stop the other one, or "
            "give this one its own folders with XDG_DATA_HOME and XDG_STATE_HOME.",
            holder.empty() ? "" : " (" + holder + ")", folder.string()),
        ExitCode::alreadyRunning);
}

std::optional<ExitCode> lock(const std::filesystem::path& folder, std::vector<InstanceLock>& locks) {
    if (const auto error = PosixFileSystem().createDirectories(folder)) {
        return complain(folderIsUnusable(folder, error));
    }
    auto lock = InstanceLock::take(folder);
    if (!lock) {
        return complainAboutSharedFolder(folder, lock.error());
    }
    locks.push_back(std::move(*lock));
    return std::nullopt;
}

// Two names may be one folder: on a file system that ignores case, or by the user's wish.
bool areDistinct(const std::filesystem::path& first, const std::filesystem::path& second) {
    std::error_code error;
    return !std::filesystem::equivalent(first, second, error);
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
        say(tr("This is a Wayland session: only the windows of X11 programs can be seen and moved, not "
               "those of Wayland programs."));
    }
}

std::expected<QDBusConnection, ExitCode> joinSessionBus() {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return std::unexpected(complain(trf("There is no session bus (DBUS_SESSION_BUS_ADDRESS): {}",
                                            bus.lastError().message().toStdString())));
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
        say(tr("Vantrel is already running; its panel is open now."));
        return ExitCode::done;
    }
    return complain(tr("Vantrel is already running. Check it with: vantrelctl status"),
                    ExitCode::alreadyRunning);
}

std::error_code OwnFolders::problem() const {
    const auto found = std::ranges::find_if(locks, [](const auto& lock) { return bool(lock.problem()); });
    return found == locks.end() ? std::error_code() : found->problem();
}

std::expected<OwnFolders, ExitCode> takeFolders() {
    const auto support = UserFolders::supportDirectory();
    const auto state = UserFolders::stateDirectory();
    const auto older = UserFolders::olderSupportDirectory();
    OwnFolders folders;
    if (const auto refusal = lock(support, folders.locks)) {
        return std::unexpected(*refusal);
    }
    if (std::filesystem::is_directory(older) && areDistinct(older, support)) {
        std::vector<InstanceLock> whileMoving;
        if (const auto refusal = lock(older, whileMoving)) {
            return std::unexpected(*refusal);
        }
        folders.moves = FolderMove::everything(older, support);
    }
    if (!std::filesystem::exists(state) || areDistinct(state, support)) {
        if (const auto refusal = lock(state, folders.locks)) {
            return std::unexpected(*refusal);
        }
        std::ranges::move(FolderMove::files(support, state, {"app.log", "notes.json", "session.json"}),
                          std::back_inserter(folders.moves));
    }
    return folders;
}

} // namespace vantrel::StartChecks
