#include "Vantrel/platform/ical/CalendarText.h"

#include "Vantrel/platform/ical/CalendarLines.h"
#include "Vantrel/platform/ical/CalendarTime.h"
#include "Vantrel/platform/ical/CalendarZones.h"
#include "Vantrel/platform/ical/EventOccurrences.h"
#include "Vantrel/platform/ical/IcalHandle.h"
#include "Vantrel/platform/ical/Recurrence.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>

namespace vantrel::CalendarText {

namespace {

// Vendor properties in which calendar servers store conference links.
constexpr std::string_view conferenceNames[] = {"X-GOOGLE-CONFERENCE", "X-MICROSOFT-SKYPETEAMSMEETINGURL"};

std::optional<std::string> text(icalcomponent* event, icalproperty_kind kind) {
    auto* const property = icalcomponent_get_first_property(event, kind);
    const auto* const value = property != nullptr ? icalproperty_get_value(property) : nullptr;
    const char* const written =
        value != nullptr ? (kind == ICAL_URL_PROPERTY ? icalvalue_get_uri(value) : icalvalue_get_text(value))
                         : nullptr;
    return written != nullptr ? std::optional(Unicode::validUtf8(written)) : std::nullopt;
}

// The memory of an occurrence that counts as one budget step.
constexpr std::int64_t bytesPerStep = 16;

// Conference links, one per line.
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

// The exceptions of a series. Each is a separate event with the series' identifier.
struct Exceptions {
    // The times that exceptions replace.
    ExceptedTimes times;
    // From each of these times until the next, the series continues like that event (RFC 5545, 3.2.13).
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
    Calendar(icalcomponent* calendar, const CalendarContext& context)
        : m_calendar(calendar), m_interval(context.interval), m_budget(context.budget),
          m_zones(calendar, context) {
        Recurrence::forEachComponent(calendar, ICAL_VEVENT_COMPONENT, [this](icalcomponent* event) {
            auto* const property = icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY);
            if (property == nullptr) {
                return;
            }
            Exceptions& exceptions = m_exceptions[text(event, ICAL_UID_PROPERTY).value_or("")];
            const auto time = CalendarTime::of(property, m_zones);
            exceptions.times.insert(time);
            if (time.isValid() && changesTheFuture(property)) {
                exceptions.changes[time.date()] = event;
            }
        });
    }

    void addEvents(std::vector<CalendarEvent>& events) {
        static const Exceptions none;
        Recurrence::forEachComponent(m_calendar, ICAL_VEVENT_COMPONENT, [&](icalcomponent* event) {
            const bool isException =
                icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY) != nullptr;
            const auto found = m_exceptions.find(text(event, ICAL_UID_PROPERTY).value_or(""));
            addSeries(event, isException || found == m_exceptions.end() ? none : found->second, events);
        });
    }

private:
    void addSeries(icalcomponent* event, const Exceptions& exceptions, std::vector<CalendarEvent>& events) {
        if (isCancelled(event) || !m_budget.spend()) {
            return;
        }
        auto occurrences =
            EventOccurrences::inInterval(event, m_zones, exceptions.times, m_interval, m_budget);
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

    // The occurrences of the series after the change and before `end`, shifted as the change shifts its own.
    [[nodiscard]] std::vector<Occurrence> changed(icalcomponent* event, const Exceptions& exceptions,
                                                  const std::pair<const Date, icalcomponent*>& change,
                                                  Date end) {
        const auto first = EventOccurrences::first(change.second, m_zones, m_budget);
        if (!first) {
            return {};
        }
        const auto shift = first->start - change.first;
        const auto length = first->end - first->start;
        std::vector<Occurrence> result;
        for (const Occurrence& former : EventOccurrences::inInterval(
                 event, m_zones, exceptions.times, {m_interval.from - shift - length, m_interval.to - shift},
                 m_budget)) {
            const Occurrence moved{former.start + shift, former.start + shift + length};
            if (former.start > change.first && former.start < end && overlaps(moved, m_interval)) {
                result.push_back(moved);
            }
        }
        return result;
    }

    void add(icalcomponent* event, const std::vector<Occurrence>& occurrences,
             std::vector<CalendarEvent>& events) {
        if (occurrences.empty()) {
            return;
        }
        auto each = record(event);
        each.isAllDay =
            CalendarTime::of(icalcomponent_get_first_property(event, ICAL_DTSTART_PROPERTY), m_zones)
                .isWholeDay();
        const auto size = static_cast<std::int64_t>(each.title.size() + each.notes.value_or("").size() +
                                                    each.location.value_or("").size());
        for (const Occurrence& occurrence : occurrences) {
            if (!m_budget.spend(1 + size / bytesPerStep)) {
                return;
            }
            each.start = occurrence.start;
            each.end = occurrence.end;
            events.push_back(each);
        }
    }

    icalcomponent* m_calendar;
    CalendarInterval m_interval;
    CalendarBudget& m_budget;
    CalendarZones m_zones;
    std::map<std::string, Exceptions> m_exceptions;
};

} // namespace

std::expected<std::vector<CalendarEvent>, std::string> events(const std::string& text,
                                                              const CalendarContext& context) {
    static std::once_flag prepared;
    std::call_once(prepared, [] { icalerror_set_errors_are_fatal(0); });
    const IcalParser parser(icalparser_new());
    std::vector<CalendarEvent> events;
    const auto lines = CalendarLines::visit(text, context.budget, [&](std::string& line) {
        const IcalComponent calendar(icalparser_add_line(parser.get(), line.data()));
        if (calendar && icalcomponent_isa(calendar.get()) == ICAL_VCALENDAR_COMPONENT) {
            Calendar(calendar.get(), context).addEvents(events);
        }
    });
    if (!lines) {
        return std::unexpected(lines.error());
    }
    std::ranges::stable_sort(events, {}, &CalendarEvent::start);
    return events;
}

} // namespace vantrel::CalendarText
