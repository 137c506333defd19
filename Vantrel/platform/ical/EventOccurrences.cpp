#include "Vantrel/platform/ical/EventOccurrences.h"

#include "Vantrel/platform/ical/Recurrence.h"

#include <algorithm>

namespace vantrel {

void ExceptedTimes::insert(const CalendarTime& time) {
    if (!time.isValid()) {
        return;
    }
    if (time.isWholeDay()) {
        days.insert(time.day());
    } else {
        moments.insert(time.date());
    }
}

bool ExceptedTimes::contains(const CalendarTime& time) const {
    return days.contains(time.day()) || (!time.isWholeDay() && moments.contains(time.date()));
}

namespace {

using std::chrono::seconds;

// libical's own conversion can overflow.
seconds lengthOf(const icaldurationtype& duration) {
    if (duration.is_neg != 0) {
        return seconds{0};
    }
    return seconds{seconds::rep{duration.seconds} + 60 * seconds::rep{duration.minutes} +
                   3600 * seconds::rep{duration.hours} +
                   86400 * (seconds::rep{duration.days} + 7 * seconds::rep{duration.weeks})};
}

class Series {
public:
    Series(icalcomponent* event, CalendarZones& zones, const ExceptedTimes& overridden,
           const CalendarInterval& interval, CalendarBudget& budget)
        : m_event(event), m_zones(zones), m_overridden(overridden), m_interval(interval), m_budget(budget),
          m_start(time(ICAL_DTSTART_PROPERTY)) {}

    std::optional<Occurrence> first() {
        if (!m_start.isValid()) {
            return std::nullopt;
        }
        measure();
        return occurrence(m_start);
    }

    std::vector<Occurrence> occurrences() {
        if (!first()) {
            return {};
        }
        Recurrence::forEach(m_event, ICAL_EXDATE_PROPERTY, [this](icalproperty* property) {
            m_excepted.insert(CalendarTime::of(property, m_zones));
        });
        add(m_start);
        const CalendarInterval reaching{m_interval.from - length(), m_interval.to};
        Recurrence::forEach(m_event, ICAL_RRULE_PROPERTY, [&](icalproperty* property) {
            Recurrence::follow(property, m_start, reaching, m_budget,
                               [this](const CalendarTime& start) { add(start); });
        });
        Recurrence::forEach(m_event, ICAL_RDATE_PROPERTY,
                            [this](icalproperty* property) { addDate(property); });
        return {m_found.begin(), m_found.end()};
    }

private:
    [[nodiscard]] CalendarTime time(icalproperty_kind kind) const {
        return CalendarTime::of(icalcomponent_get_first_property(m_event, kind), m_zones);
    }

    // Computes the event's length, in whole days for whole-day events, else in seconds.
    void measure() {
        const auto end = time(ICAL_DTEND_PROPERTY);
        auto* const duration = icalcomponent_get_first_property(m_event, ICAL_DURATION_PROPERTY);
        seconds length{0};
        if (end.isValid()) {
            length = std::chrono::floor<seconds>(end.date() - m_start.date());
        } else if (duration != nullptr) {
            length = lengthOf(icalproperty_get_duration(duration));
        }
        m_length = std::clamp(length, seconds{0}, seconds{EventOccurrences::longest});
        // Round, because a day with a clock change is an hour shorter or longer.
        m_days = std::max(std::chrono::round<std::chrono::days>(m_length), std::chrono::days{1});
    }

    [[nodiscard]] seconds length() const { return m_start.isWholeDay() ? seconds{m_days} : m_length; }

    [[nodiscard]] Occurrence occurrence(const CalendarTime& start) const {
        const Date begin = start.date();
        return {begin, start.isWholeDay() ? start.zone().date(start.local() + m_days) : begin + m_length};
    }

    void add(const CalendarTime& start) {
        if (!start.isValid() || m_excepted.contains(start) || m_overridden.contains(start)) {
            return;
        }
        const Occurrence found = occurrence(start);
        if (found.start <= m_interval.to && found.end >= m_interval.from) {
            m_found.insert(found);
        }
    }

    void addDate(icalproperty* property) {
        const auto date = icalproperty_get_rdate(property);
        const bool isPeriod = icaltime_is_null_time(date.time) != 0;
        if (m_budget.spend()) {
            add(CalendarTime::of(isPeriod ? date.period.start : date.time, property, m_zones));
        }
    }

    icalcomponent* m_event;
    CalendarZones& m_zones;
    const ExceptedTimes& m_overridden;
    CalendarInterval m_interval;
    CalendarBudget& m_budget;
    CalendarTime m_start;
    seconds m_length{0};
    std::chrono::days m_days{1};
    ExceptedTimes m_excepted;
    std::set<Occurrence> m_found;
};

} // namespace

std::vector<Occurrence> EventOccurrences::inInterval(icalcomponent* event, CalendarZones& zones,
                                                     const ExceptedTimes& overridden,
                                                     const CalendarInterval& interval,
                                                     CalendarBudget& budget) {
    return Series(event, zones, overridden, interval, budget).occurrences();
}

std::optional<Occurrence> EventOccurrences::first(icalcomponent* event, CalendarZones& zones,
                                                  CalendarBudget& budget) {
    static const ExceptedTimes none;
    return Series(event, zones, none, {}, budget).first();
}

} // namespace vantrel
