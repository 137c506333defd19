#include "Vantrel/platform/x11/UnrestrictedStart.h"

#include <cstdlib>
#include <filesystem>
#include <glib.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace vantrel::UnrestrictedStart {

namespace {

// ExitType=cgroup keeps the unit alive while any process in it runs: launchers often exit before the
// application does.
constexpr const char* script = "systemd-run --user --quiet --collect --slice=app.slice "
                               "--property=ExitType=cgroup -- \"$@\" || exec \"$@\"";

// Runs in the child. Keeps signals to our process group from ending the started program.
void detach(gpointer /*nothing*/) {
    setsid();
}

} // namespace

bool isNeeded() {
    const char* const runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
    std::error_code ignored;
    return prctl(PR_GET_NO_NEW_PRIVS, 0, 0, 0, 0) == 1 && runtimeFolder != nullptr &&
           std::filesystem::exists(std::filesystem::path(runtimeFolder) / "systemd/private", ignored);
}

bool run(std::vector<std::string> command) {
    std::vector<std::string> words{"sh", "-c", script, "vantrel"};
    words.insert(words.end(), command.begin(), command.end());
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    // Without G_SPAWN_DO_NOT_REAP_CHILD, GLib makes it a child of the init process.
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): flags, which GLib does not mark as such
    constexpr auto flags = static_cast<GSpawnFlags>(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL |
                                                    G_SPAWN_STDERR_TO_DEV_NULL);
    return g_spawn_async(nullptr, arguments.data(), nullptr, flags, detach, nullptr, nullptr, nullptr) != 0;
}

bool runSelf(std::vector<std::string> arguments) {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    // An upgrade may have replaced the program.
    if (error || !std::filesystem::exists(program, error)) {
        return false;
    }
    arguments.insert(arguments.begin(), program.string());
    return run(std::move(arguments));
}

} // namespace vantrel::UnrestrictedStart
