#include "Vantrel/platform/macos/MissionControlFixer.h"

#include "Vantrel/platform/macos/MissionControlPreferences.h"

#include <array>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ; // NOLINT(readability-redundant-declaration): not declared by any macOS header

namespace vantrel::MissionControlFixer {

using namespace MissionControlPreferences;

namespace {

bool switchOff(const Setting& setting) {
    CFPreferencesSetValue(setting.key, kCFBooleanFalse, setting.domain, kCFPreferencesCurrentUser,
                          kCFPreferencesAnyHost);
    return CFPreferencesSynchronize(setting.domain, kCFPreferencesCurrentUser, kCFPreferencesAnyHost) != 0;
}

void restartDock() {
    std::array<char, 8> program{"killall"};
    std::array<char, 5> argument{"Dock"};
    const std::array<char*, 3> arguments{program.data(), argument.data(), nullptr};
    pid_t pid = 0;
    if (posix_spawn(&pid, "/usr/bin/killall", nullptr, nullptr, arguments.data(), environ) == 0) {
        // killall exits at once.
        waitpid(pid, nullptr, 0);
    }
}

} // namespace

bool apply() {
    const bool areSeparate = switchOff(spansDisplays());
    const bool stayInOrder = switchOff(mostRecentlyUsed());
    restartDock();
    return areSeparate && stayInOrder;
}

} // namespace vantrel::MissionControlFixer
