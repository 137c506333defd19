#include "Vantrel/platform/macos/MissionControlReader.h"

#include "Vantrel/platform/macos/CFRef.h"
#include "Vantrel/platform/macos/MissionControlPreferences.h"

#include <optional>

namespace vantrel::MissionControlReader {

using namespace MissionControlPreferences;

namespace {

// A key that was never written has the system's default.
std::optional<bool> value(const Setting& setting) {
    // These preferences belong to another program, which may have changed them since the last read.
    CFPreferencesAppSynchronize(setting.domain);
    const auto stored = CFRef<CFTypeRef>::adopt(CFPreferencesCopyAppValue(setting.key, setting.domain));
    if (!stored) {
        return setting.isOnByDefault;
    }
    if (const CFBooleanRef truth = cfCast<CFBooleanRef>(stored.get())) {
        return CFBooleanGetValue(truth) != 0;
    }
    // People may set it to a number by hand.
    std::int64_t number = 0;
    const CFNumberRef written = cfCast<CFNumberRef>(stored.get());
    if (written && CFNumberGetValue(written, kCFNumberSInt64Type, &number)) {
        return number != 0;
    }
    return std::nullopt;
}

} // namespace

MissionControlConfig read() {
    const auto spans = value(spansDisplays());
    return {.separateSpaces = spans ? std::optional(!*spans) : std::nullopt,
            .autoRearrangeSpaces = value(mostRecentlyUsed())};
}

} // namespace vantrel::MissionControlReader
