#include "Vantrel/platform/ical/CalendarZones.h"

#include "Vantrel/platform/ical/CalendarTime.h"
#include "Vantrel/platform/ical/Recurrence.h"

#include <algorithm>
#include <string_view>
#include <unicode/timezone.h>

namespace vantrel {

namespace {

using std::chrono::seconds;

constexpr seconds largestOffset = std::chrono::hours{26};
constexpr std::chrono::days yearsBefore{3653};
constexpr std::chrono::days yearAfter{400};

// Some programs prefix the zone name with their own ("/freeassociation.sourceforge.net/Europe/Berlin").
std::optional<TimeZone> prefixed(const std::string& name, const ZoneByName& zoneNamed) {
    if (!name.starts_with('/') || name.size() > 200) {
        return std::nullopt;
    }
    for (auto slash = name.find('/', 1); slash != std::string::npos; slash = name.find('/', slash + 1)) {
        if (auto zone = zoneNamed(name.substr(slash + 1))) {
            return zone;
        }
    }
    return std::nullopt;
}

// Exchange and Outlook use Windows zone names ("W. Europe Standard Time"), sometimes without including the
// rules.
std::optional<TimeZone> byWindowsName(const std::string& name, const ZoneByName& zoneNamed) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString found;
    icu::TimeZone::getIDForWindowsID(icu::UnicodeString::fromUTF8(name), nullptr, found, status);
    std::string id;
    found.toUTF8String(id);
    return U_SUCCESS(status) && !id.empty() ? zoneNamed(id) : std::nullopt;
}

std::optional<seconds> offset(icalcomponent* rules, icalproperty_kind kind) {
    auto* const property = icalcomponent_get_first_property(rules, kind);
    const auto* const value = property != nullptr ? icalproperty_get_value(property) : nullptr;
    if (value == nullptr || icalvalue_isa(value) != ICAL_UTCOFFSET_VALUE) {
        return std::nullopt;
    }
    const seconds offset{icalvalue_get_utcoffset(value)};
    return offset < largestOffset && offset > -largestOffset ? std::optional(offset) : std::nullopt;
}

// A transition to standard or daylight saving time.
struct Onset {
    std::chrono::sys_seconds at;
    seconds before;
    seconds after;
};

void addOnsets(icalcomponent* rules, const CalendarContext& context, std::vector<Onset>& onsets) {
    const auto before = offset(rules, ICAL_TZOFFSETFROM_PROPERTY);
    const auto after = offset(rules, ICAL_TZOFFSETTO_PROPERTY);
    if (!before || !after) {
        return;
    }
    const TimeZone clock(ZoneRules{.firstOffset = *before, .transitions = {}, .afterwards = std::nullopt});
    const auto add = [&](const CalendarTime& time) {
        onsets.push_back({std::chrono::floor<seconds>(time.date()), *before, *after});
    };
    const CalendarTime start =
        CalendarTime::inZone(icalcomponent_get_first_property(rules, ICAL_DTSTART_PROPERTY), clock);
    if (!start.isValid()) {
        return;
    }
    add(start);
    Recurrence::forEach(rules, ICAL_RRULE_PROPERTY, [&](icalproperty* property) {
        Recurrence::follow(property, start,
                           {context.interval.from - yearsBefore, context.interval.to + yearAfter},
                           context.budget, add);
    });
    Recurrence::forEach(rules, ICAL_RDATE_PROPERTY, [&](icalproperty* property) {
        const auto time = icalproperty_get_rdate(property).time;
        if (const CalendarTime each{time, clock}; each.isValid()) {
            add(each);
        }
    });
}

} // namespace

TimeZone CalendarZones::named(const std::string& name) {
    const auto known = m_known.find(name);
    return known != m_known.end()
               ? known->second
               : m_known.emplace(name, find(name).value_or(m_context.userZone)).first->second;
}

std::optional<TimeZone> CalendarZones::find(const std::string& name) const {
    auto zone = m_context.zoneNamed(name);
    if (!zone) {
        zone = prefixed(name, m_context.zoneNamed);
    }
    if (!zone) {
        zone = own(name);
    }
    return zone ? zone : byWindowsName(name, m_context.zoneNamed);
}

std::optional<TimeZone> CalendarZones::own(const std::string& name) const {
    std::vector<Onset> onsets;
    Recurrence::forEachComponent(m_calendar, ICAL_VTIMEZONE_COMPONENT, [&](icalcomponent* zone) {
        auto* const id = icalcomponent_get_first_property(zone, ICAL_TZID_PROPERTY);
        const char* const written = id != nullptr ? icalproperty_get_tzid(id) : nullptr;
        if (written == nullptr || written != name || !onsets.empty()) {
            return;
        }
        for (const auto kind : {ICAL_XSTANDARD_COMPONENT, ICAL_XDAYLIGHT_COMPONENT}) {
            Recurrence::forEachComponent(zone, kind,
                                         [&](icalcomponent* rules) { addOnsets(rules, m_context, onsets); });
        }
    });
    if (onsets.empty()) {
        return std::nullopt;
    }
    std::ranges::stable_sort(onsets, {}, &Onset::at);
    ZoneRules rules{.firstOffset = onsets.front().before, .transitions = {}, .afterwards = std::nullopt};
    for (const Onset& onset : onsets) {
        if (rules.transitions.empty() || rules.transitions.back().at < onset.at) {
            rules.transitions.push_back({onset.at, onset.after});
        }
    }
    return TimeZone(std::move(rules));
}

} // namespace vantrel
