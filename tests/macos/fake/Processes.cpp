#include "tests/macos/fake/Processes.h"

#include "tests/macos/PlatformTest.h"

#include <cerrno>
#include <spawn.h>
#include <sys/wait.h>

namespace vantrel::fake {

namespace {

[[maybe_unused]] const PlatformPart part([] { processes() = {}; });

} // namespace

ProcessesControl& processes() {
    static ProcessesControl control;
    return control;
}

bool hasUnreapedProcess() {
    return waitpid(-1, nullptr, 0) != -1 || errno != ECHILD;
}

} // namespace vantrel::fake

// The linker redirects calls of posix_spawn() here (--wrap).
extern "C" {

int __real_posix_spawn(pid_t* pid, const char* path, const posix_spawn_file_actions_t* actions,
                       const posix_spawnattr_t* attributes, char* const arguments[],
                       char* const environment[]);

int __wrap_posix_spawn(pid_t* pid, const char* path, const posix_spawn_file_actions_t* actions,
                       const posix_spawnattr_t* attributes, char* const arguments[],
                       char* const environment[]) {
    auto& control = vantrel::fake::processes();
    std::string launch = path;
    for (char* const* argument = arguments + 1; *argument != nullptr; ++argument) {
        launch += " " + std::string(*argument);
    }
    control.launches.push_back(launch);
    return control.launchError != 0
               ? control.launchError
               : __real_posix_spawn(pid, "/bin/true", actions, attributes, arguments, environment);
}

} // extern "C"
