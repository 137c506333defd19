#include "Vantrel/platform/macos/MacLocalZone.h"

#include "Vantrel/platform/macos/FoundationText.h"

namespace vantrel {

TimeZone MacLocalZone::current() {
    @autoreleasepool {
        // Else Foundation goes on giving the zone that the program began in.
        [NSTimeZone resetSystemTimeZone];
        const std::string name = FoundationText::utf8(NSTimeZone.systemTimeZone.name).value_or("");
        if (name != m_name) {
            m_name = name;
            m_zone = TimeZone::named(name).value_or(TimeZone::utc());
        }
        return m_zone;
    }
}

} // namespace vantrel
