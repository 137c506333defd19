#include "Vantrel/platform/ical/CalendarText.h"

#include "Vantrel/platform/ical/CalendarTime.h"
#include "Vantrel/platform/ical/IcalHandle.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>

namespace vantrel::CalendarText {

namespace {

// Where calendar servers put the link of a call beside the texts that everyone knows.
constexpr std::string_view conferenceNames[] = {"X-GOOGLE-CONFERENCE", "X-MICROSOFT-SKYPETEAMSMEETINGURL"};

template <typename Visit>
void forEachComponent(icalcomponent* parent, icalcomponent_kind kind, Visit visit) {
    for (auto* component = icalcomponent_get_first_component(parent, kind); component != nullptr;
         component = icalcomponent_get_next_component(parent, kind)) {
        visit(component);
    }
}

std::optional<std::string> text(icalcomponent* event, icalproperty_kind kind) {
    auto* const property = icalcomponent_get_first_property(event, kind);
    const auto* const value = property != nullptr ? icalproperty_get_value(property) : nullptr;
    const char* const written =
        value != nullptr ? (kind == ICAL_URL_PROPERTY ? icalvalue_get_uri(value) : icalvalue_get_text(value))
                         : nullptr;
    return written != nullptr ? std::optional(Unicode::validUtf8(written)) : std::nullopt;
}

// Links to calls, one a line.
std::string conferenceLinks(icalcomponent* event) {
    std::string links;
    const auto add = [&](const icalproperty* property) {
        const char* const written = icalproperty_get_value_as_string(property);
        if (written != nullptr) {
            links += '\n' + Unicode::validUtf8(written);
        }
    };
    for (auto* property = icalcomponent_get_first_property(event, ICAL_X_PROPERTY); property != nullptr;
         property = icalcomponent_get_next_property(event, ICAL_X_PROPERTY)) {
        const char* const name = icalproperty_get_x_name(property);
        if (name != nullptr && std::ranges::find(conferenceNames, name) != std::end(conferenceNames)) {
            add(property);
        }
    }
    if (auto* const property = icalcomponent_get_first_property(event, ICAL_CONFERENCE_PROPERTY)) {
        add(property);
    }
    return links;
}

CalendarEvent record(icalcomponent* event) {
    CalendarEvent result{.identifier = text(event, ICAL_UID_PROPERTY).value_or(""),
                         .title = text(event, ICAL_SUMMARY_PROPERTY).value_or(""),
                         .location = text(event, ICAL_LOCATION_PROPERTY),
                         .notes = text(event, ICAL_DESCRIPTION_PROPERTY),
                         .url = text(event, ICAL_URL_PROPERTY),
                         .start = {},
                         .end = {}};
    if (const auto links = conferenceLinks(event); !links.empty()) {
        result.notes = result.notes.value_or("") + links;
    }
    return result;
}

// By the event's identifier, the times that an event of its own stands for.
std::map<std::string, ExceptedTimes> overriddenTimes(icalcomponent* calendar, const TimeZone& zone) {
    std::map<std::string, ExceptedTimes> times;
    forEachComponent(calendar, ICAL_VEVENT_COMPONENT, [&](icalcomponent* event) {
        if (auto* const property = icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY)) {
            times[text(event, ICAL_UID_PROPERTY).value_or("")].insert(CalendarTime::of(property, calendar),
                                                                      zone);
        }
    });
    return times;
}

void addEvents(icalcomponent* calendar, const CalendarInterval& interval, const TimeZone& zone,
               std::vector<CalendarEvent>& events) {
    const auto overridden = overriddenTimes(calendar, zone);
    static const ExceptedTimes none;
    forEachComponent(calendar, ICAL_VEVENT_COMPONENT, [&](icalcomponent* event) {
        if (icalcomponent_get_status(event) == ICAL_STATUS_CANCELLED) {
            return;
        }
        const bool isOverride =
            icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY) != nullptr;
        const auto found = overridden.find(text(event, ICAL_UID_PROPERTY).value_or(""));
        const auto& excepted = isOverride || found == overridden.end() ? none : found->second;
        const auto occurrences = EventOccurrences::inInterval(event, calendar, excepted, interval, zone);
        if (occurrences.empty()) {
            return;
        }
        auto each = record(event);
        each.isAllDay = icalcomponent_get_dtstart(event).is_date != 0;
        for (const Occurrence& occurrence : occurrences) {
            each.start = occurrence.start;
            each.end = occurrence.end;
            events.push_back(each);
        }
    });
}

// libical closes what a cut-off file leaves open without a word.
bool isWhole(const std::string& text) {
    constexpr std::string_view end = "END:VCALENDAR";
    const auto last = text.find_last_not_of(" \t\r\n");
    if (last == std::string::npos || last + 1 < end.size()) {
        return false;
    }
    return std::ranges::equal(std::string_view(text).substr(last + 1 - end.size(), end.size()), end, {},
                              [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
}

} // namespace

std::expected<std::vector<CalendarEvent>, std::string>
events(const std::string& text, const CalendarInterval& interval, const TimeZone& zone) {
    static std::once_flag prepared;
    std::call_once(prepared, [] { icalerror_set_errors_are_fatal(0); });
    if (text.find('\0') != std::string::npos || !isWhole(text)) {
        return std::unexpected("it is no calendar, or only a part of one");
    }
    const IcalComponent root(icalparser_parse_string(text.c_str()));
    if (!root) {
        return std::unexpected("it is no calendar");
    }
    std::vector<CalendarEvent> events;
    if (icalcomponent_isa(root.get()) == ICAL_VCALENDAR_COMPONENT) {
        addEvents(root.get(), interval, zone, events);
    } else {
        // Several calendars one after the other.
        forEachComponent(root.get(), ICAL_VCALENDAR_COMPONENT,
                         [&](icalcomponent* calendar) { addEvents(calendar, interval, zone, events); });
    }
    std::ranges::stable_sort(events, {}, &CalendarEvent::start);
    return events;
}

} // namespace vantrel::CalendarText
