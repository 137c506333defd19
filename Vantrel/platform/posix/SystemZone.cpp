#include "Vantrel/platform/posix/SystemZone.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <unicode/timezone.h>

namespace vantrel {

namespace {

// Finding out what zone a copy in /etc/localtime is takes ICU a walk through all zones.
std::string mark() {
    const char* const variable = std::getenv("TZ");
    const std::filesystem::path file = "/etc/localtime";
    std::error_code ignored;
    const auto target = std::filesystem::read_symlink(file, ignored).string();
    // libc++ counts these in a number that std::to_string does not take.
    const auto modified = std::chrono::duration_cast<std::chrono::microseconds>(
        std::filesystem::last_write_time(file, ignored).time_since_epoch());
    return std::string(variable != nullptr ? variable : "") + '\n' + target + '\n' +
           std::to_string(modified.count());
}

} // namespace

TimeZone SystemZone::current() {
    if (auto now = mark(); now != m_mark) {
        m_mark = std::move(now);
        const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::detectHostTimeZone());
        icu::UnicodeString id;
        std::string name;
        if (zone) {
            zone->getID(id).toUTF8String(name);
        }
        m_zone = TimeZone::named(name).value_or(TimeZone::utc());
    }
    return m_zone;
}

} // namespace vantrel
