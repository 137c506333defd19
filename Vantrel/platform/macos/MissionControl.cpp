#include "Vantrel/platform/macos/MissionControl.h"

#include "Vantrel/platform/macos/CFRef.h"

#include <array>
#include <spawn.h>
#include <sys/wait.h>

extern char** environ; // NOLINT(readability-redundant-declaration): macOS declares it nowhere

namespace vantrel::MissionControl {

namespace {

struct Setting {
    CFStringRef domain = nullptr;
    CFStringRef key = nullptr;
};

// One Space spans all displays.
Setting spansDisplays() {
    return {CFSTR("com.apple.spaces"), CFSTR("spans-displays")};
}

// Spaces are rearranged by most recent use.
Setting mostRecentlyUsed() {
    return {CFSTR("com.apple.dock"), CFSTR("mru-spaces")};
}

std::optional<bool> value(const Setting& setting) {
    // Another program's preferences, which it may have changed since they were read last.
    CFPreferencesAppSynchronize(setting.domain);
    const auto stored = CFRef<CFTypeRef>::adopt(CFPreferencesCopyAppValue(setting.key, setting.domain));
    if (const CFBooleanRef truth = cfCast<CFBooleanRef>(stored.get())) {
        return CFBooleanGetValue(truth) != 0;
    }
    // As people write it by hand.
    std::int64_t number = 0;
    const CFNumberRef written = cfCast<CFNumberRef>(stored.get());
    if (written && CFNumberGetValue(written, kCFNumberSInt64Type, &number)) {
        return number != 0;
    }
    return std::nullopt;
}

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
        // It ends at once.
        waitpid(pid, nullptr, 0);
    }
}

} // namespace

MissionControlConfig read() {
    const auto spans = value(spansDisplays());
    return {.separateSpaces = spans ? std::optional(!*spans) : std::nullopt,
            .autoRearrangeSpaces = value(mostRecentlyUsed())};
}

bool apply() {
    const bool areSeparate = switchOff(spansDisplays());
    const bool stayInOrder = switchOff(mostRecentlyUsed());
    restartDock();
    return areSeparate && stayInOrder;
}

} // namespace vantrel::MissionControl
