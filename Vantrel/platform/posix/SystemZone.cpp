#include "Vantrel/platform/posix/SystemZone.h"

#include <cstdlib>

namespace vantrel {

namespace {

// Returns none if TZ is not set. Drops a leading colon, which no longer has a meaning.
std::optional<std::string> zoneVariable() {
    const char* const variable = std::getenv("TZ");
    if (variable == nullptr) {
        return std::nullopt;
    }
    return *variable == ':' ? variable + 1 : variable;
}

} // namespace

std::optional<TimeZone> SystemZone::look() {
    const auto value = zoneVariable();
    if (!value) {
        return m_database.at(m_localtime);
    }
    if (value->empty()) {
        return TimeZone::utc();
    }
    const auto zone = value->starts_with('/') ? m_database.at(*value) : m_database.named(*value);
    return zone ? zone : TimeZone::posix(*value);
}

TimeZone SystemZone::current() {
    const auto found = look();
    if (!found && !m_isUnreadable) {
        const auto value = zoneVariable();
        m_log("time zone: " + (value ? "TZ=" + *value : m_localtime.string()) +
              " cannot be read, so UTC is used; is the package tzdata installed?");
    }
    m_isUnreadable = !found;
    const TimeZone zone = found.value_or(TimeZone::utc());
    if (m_zone && *m_zone != zone) {
        m_log("time zone: this machine's zone or its rules have changed");
    }
    m_zone = zone;
    return zone;
}

} // namespace vantrel
