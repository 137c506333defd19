#include "Vantrel/platform/ical/CalendarText.h"

#include "Vantrel/platform/ical/CalendarTime.h"
#include "Vantrel/platform/ical/IcalHandle.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <iterator>
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

// What the exceptions of a series say, which are events of their own with the series' identifier.
struct Exceptions {
    // They stand for these times.
    ExceptedTimes times;
    // From these times on, each until the next, the series goes on as that event does (RFC 5545, 3.2.13).
    std::map<Date, icalcomponent*> changes;
};

bool isCancelled(icalcomponent* event) {
    return icalcomponent_get_status(event) == ICAL_STATUS_CANCELLED;
}

bool changesTheFuture(icalproperty* recurrenceID) {
    auto* const range = icalproperty_get_first_parameter(recurrenceID, ICAL_RANGE_PARAMETER);
    return range != nullptr && icalparameter_get_range(range) == ICAL_RANGE_THISANDFUTURE;
}

bool overlaps(const Occurrence& occurrence, const CalendarInterval& interval) {
    return occurrence.start <= interval.to && occurrence.end >= interval.from;
}

class Calendar {
public:
    Calendar(icalcomponent* calendar, const CalendarInterval& interval, const TimeZone& zone)
        : m_calendar(calendar), m_interval(interval), m_zone(zone) {
        forEachComponent(calendar, ICAL_VEVENT_COMPONENT, [this](icalcomponent* event) {
            auto* const property = icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY);
            if (property == nullptr) {
                return;
            }
            Exceptions& exceptions = m_exceptions[text(event, ICAL_UID_PROPERTY).value_or("")];
            const auto time = CalendarTime::of(property, m_calendar);
            exceptions.times.insert(time, m_zone);
            if (changesTheFuture(property)) {
                exceptions.changes[CalendarTime::date(time, m_zone)] = event;
            }
        });
    }

    void addEvents(std::vector<CalendarEvent>& events) const {
        static const Exceptions none;
        forEachComponent(m_calendar, ICAL_VEVENT_COMPONENT, [&](icalcomponent* event) {
            const bool isException =
                icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY) != nullptr;
            const auto found = m_exceptions.find(text(event, ICAL_UID_PROPERTY).value_or(""));
            addSeries(event, isException || found == m_exceptions.end() ? none : found->second, events);
        });
    }

private:
    void addSeries(icalcomponent* event, const Exceptions& exceptions,
                   std::vector<CalendarEvent>& events) const {
        if (isCancelled(event)) {
            return;
        }
        auto occurrences =
            EventOccurrences::inInterval(event, m_calendar, exceptions.times, m_interval, m_zone);
        if (!exceptions.changes.empty()) {
            const Date end = exceptions.changes.begin()->first;
            std::erase_if(occurrences, [&](const Occurrence& each) { return each.start >= end; });
        }
        add(event, occurrences, events);
        for (auto change = exceptions.changes.begin(); change != exceptions.changes.end(); ++change) {
            const auto next = std::next(change);
            const Date end = next == exceptions.changes.end() ? Date::max() : next->first;
            if (!isCancelled(change->second)) {
                add(change->second, changed(event, exceptions, *change, end), events);
            }
        }
    }

    // The occurrences of the series after the change and before `end`, moved as the change moves the first.
    [[nodiscard]] std::vector<Occurrence> changed(icalcomponent* event, const Exceptions& exceptions,
                                                  const std::pair<const Date, icalcomponent*>& change,
                                                  Date end) const {
        const auto first = EventOccurrences::first(change.second, m_calendar, m_zone);
        if (!first) {
            return {};
        }
        const auto shift = first->start - change.first;
        const auto length = first->end - first->start;
        std::vector<Occurrence> result;
        for (const Occurrence& former : EventOccurrences::inInterval(
                 event, m_calendar, exceptions.times,
                 {m_interval.from - shift - length, m_interval.to - shift}, m_zone)) {
            const Occurrence moved{former.start + shift, former.start + shift + length};
            if (former.start > change.first && former.start < end && overlaps(moved, m_interval)) {
                result.push_back(moved);
            }
        }
        return result;
    }

    static void add(icalcomponent* event, const std::vector<Occurrence>& occurrences,
                    std::vector<CalendarEvent>& events) {
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
    }

    icalcomponent* m_calendar;
    const CalendarInterval& m_interval;
    const TimeZone& m_zone;
    std::map<std::string, Exceptions> m_exceptions;
};

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
        Calendar(root.get(), interval, zone).addEvents(events);
    } else {
        // Several calendars one after the other.
        forEachComponent(root.get(), ICAL_VCALENDAR_COMPONENT, [&](icalcomponent* calendar) {
            Calendar(calendar, interval, zone).addEvents(events);
        });
    }
    std::ranges::stable_sort(events, {}, &CalendarEvent::start);
    return events;
}

} // namespace vantrel::CalendarText
