#include "Vantrel/platform/macos/MacLocalZone.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <chrono>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel {

namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

// No zone keeps an offset for less than this. The shortest is Morocco's change for the month of Ramadan.
constexpr std::chrono::days step{7};

seconds offset(NSTimeZone* zone, sys_seconds time) {
    const auto sinceEpoch = static_cast<NSTimeInterval>(time.time_since_epoch().count());
    return seconds{[zone secondsFromGMTForDate:[NSDate dateWithTimeIntervalSince1970:sinceEpoch]]};
}

// Finds the first second after `before` at which the zone has the same offset as at `after`.
sys_seconds change(NSTimeZone* zone, sys_seconds before, sys_seconds after) {
    const seconds changed = offset(zone, after);
    while (after - before > seconds{1}) {
        const sys_seconds middle = before + (after - before) / 2;
        (offset(zone, middle) == changed ? after : before) = middle;
    }
    return after;
}

} // namespace

TimeZone MacLocalZone::current() {
    @autoreleasepool {
        // Otherwise Foundation keeps returning the zone from when the program started.
        [NSTimeZone resetSystemTimeZone];
        NSTimeZone* const zone = NSTimeZone.systemTimeZone;
        // Start at midnight, so that the same rules compare equal all day.
        const sys_seconds today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
        sys_seconds last = today - std::chrono::days{400};
        ZoneRules rules{.firstOffset = offset(zone, last), .transitions = {}, .afterwards = std::nullopt};
        seconds now = rules.firstOffset;
        while (last < today + std::chrono::days{800}) {
            const sys_seconds next = last + step;
            if (const seconds then = offset(zone, next); then != now) {
                rules.transitions.push_back({change(zone, last, next), then});
                now = then;
            }
            last = next;
        }
        return TimeZone(std::move(rules));
    }
}

} // namespace vantrel
