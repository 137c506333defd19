#include "Vantrel/platform/ical/EventOccurrences.h"

#include "Vantrel/platform/ical/CalendarTime.h"
#include "Vantrel/platform/ical/IcalHandle.h"

#include <algorithm>

namespace vantrel {

void ExceptedTimes::insert(const icaltimetype& time, const TimeZone& zone) {
    if (time.is_date != 0) {
        days.insert(CalendarTime::day(time));
    } else {
        moments.insert(CalendarTime::date(time, zone));
    }
}

bool ExceptedTimes::contains(const icaltimetype& time, const TimeZone& zone) const {
    return days.contains(CalendarTime::day(time)) ||
           (time.is_date == 0 && moments.contains(CalendarTime::date(time, zone)));
}

namespace {

// Clocks differ from UTC by less than this.
constexpr std::chrono::days zoneMargin{2};

// libical's years end soon after; a rule that never matches is followed to the end of the interval only.
constexpr int mostSteps = 200'000;

class Series {
public:
    Series(icalcomponent* event, icalcomponent* calendar, const ExceptedTimes& overridden,
           const CalendarInterval& interval, const TimeZone& zone)
        : m_event(event), m_calendar(calendar), m_overridden(overridden), m_interval(interval), m_zone(zone),
          m_start(time(ICAL_DTSTART_PROPERTY)) {}

    std::optional<Occurrence> first() {
        if (icaltime_is_null_time(m_start) != 0 || icaltime_is_valid_time(m_start) == 0) {
            return std::nullopt;
        }
        measure();
        return occurrence(m_start);
    }

    std::vector<Occurrence> occurrences() {
        if (!first()) {
            return {};
        }
        forEach(ICAL_EXDATE_PROPERTY, [this](icalproperty* property) {
            m_excepted.insert(CalendarTime::of(property, m_calendar), m_zone);
        });
        add(m_start);
        forEach(ICAL_RRULE_PROPERTY, [this](icalproperty* property) { follow(property); });
        forEach(ICAL_RDATE_PROPERTY, [this](icalproperty* property) { addDate(property); });
        return {m_found.begin(), m_found.end()};
    }

private:
    [[nodiscard]] icaltimetype time(icalproperty_kind kind) const {
        return CalendarTime::of(icalcomponent_get_first_property(m_event, kind), m_calendar);
    }

    template <typename Visit>
    void forEach(icalproperty_kind kind, Visit visit) {
        for (auto* property = icalcomponent_get_first_property(m_event, kind); property != nullptr;
             property = icalcomponent_get_next_property(m_event, kind)) {
            visit(property);
        }
    }

    // How long the event is: in whole days for one of whole days, else in seconds.
    void measure() {
        const auto end = time(ICAL_DTEND_PROPERTY);
        auto* const duration = icalcomponent_get_first_property(m_event, ICAL_DURATION_PROPERTY);
        std::chrono::seconds length{0};
        if (icaltime_is_null_time(end) == 0 && icaltime_is_valid_time(end) != 0) {
            length = std::chrono::floor<std::chrono::seconds>(CalendarTime::date(end, m_zone) -
                                                              CalendarTime::date(m_start, m_zone));
        } else if (duration != nullptr) {
            length = std::chrono::seconds{icaldurationtype_as_int(icalproperty_get_duration(duration))};
        }
        m_length = std::max(length, std::chrono::seconds{0});
        // The day on which the clocks change is an hour shorter or longer.
        m_days = std::max(std::chrono::round<std::chrono::days>(m_length), std::chrono::days{1});
    }

    [[nodiscard]] std::chrono::seconds length() const {
        return m_start.is_date != 0 ? std::chrono::seconds{m_days} : m_length;
    }

    [[nodiscard]] Occurrence occurrence(const icaltimetype& start) const {
        const Date begin = CalendarTime::date(start, m_zone);
        if (start.is_date == 0) {
            return {begin, begin + m_length};
        }
        return {begin, m_zone.date(std::chrono::local_days{CalendarTime::day(start)} + m_days)};
    }

    void add(const icaltimetype& start) {
        if (icaltime_is_valid_time(start) == 0 || m_excepted.contains(start, m_zone) ||
            m_overridden.contains(start, m_zone)) {
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
        add(CalendarTime::inZoneOf(isPeriod ? date.period.start : date.time, property, m_calendar));
    }

    void follow(icalproperty* property) {
        auto rule = icalproperty_get_rrule(property);
        if (rule.freq == ICAL_SECONDLY_RECURRENCE || rule.freq == ICAL_MINUTELY_RECURRENCE) {
            return;
        }
        if (rule.until.is_date != 0 && m_start.is_date == 0) {
            // Against the standard, but often meant like this: the whole last day.
            rule.until = {.year = rule.until.year,
                          .month = rule.until.month,
                          .day = rule.until.day,
                          .hour = 23,
                          .minute = 59,
                          .second = 59,
                          .is_date = 0,
                          .is_daylight = 0,
                          .zone = m_start.zone};
        }
        const Date last = m_interval.to + zoneMargin;
        const auto end = CalendarTime::like(m_start, last);
        if (icaltime_compare(end, m_start) < 0) {
            return;
        }
        if (icaltime_is_null_time(rule.until) != 0 ||
            (rule.until.is_date == end.is_date && icaltime_compare(end, rule.until) < 0)) {
            rule.until = end;
        }
        const IcalIterator iterator(icalrecur_iterator_new(rule, m_start));
        if (!iterator) {
            return;
        }
        // libical 3.0.16 loses the phase of hourly rules when it skips, and cannot skip while it counts.
        const bool maySkip = rule.count == 0 && rule.freq != ICAL_HOURLY_RECURRENCE;
        const auto begin = CalendarTime::like(m_start, m_interval.from - length() - zoneMargin);
        if (maySkip && icaltime_compare(begin, m_start) > 0 &&
            icalrecur_iterator_set_start(iterator.get(), begin) == 0) {
            return;
        }
        for (int step = 0; step < mostSteps; ++step) {
            const auto next = icalrecur_iterator_next(iterator.get());
            if (icaltime_is_null_time(next) != 0 || CalendarTime::date(next, m_zone) > last) {
                return;
            }
            add(next);
        }
    }

    icalcomponent* m_event;
    icalcomponent* m_calendar;
    const ExceptedTimes& m_overridden;
    CalendarInterval m_interval;
    const TimeZone& m_zone;
    icaltimetype m_start;
    std::chrono::seconds m_length{0};
    std::chrono::days m_days{1};
    ExceptedTimes m_excepted;
    std::set<Occurrence> m_found;
};

} // namespace

std::vector<Occurrence> EventOccurrences::inInterval(icalcomponent* event, icalcomponent* calendar,
                                                     const ExceptedTimes& overridden,
                                                     const CalendarInterval& interval, const TimeZone& zone) {
    return Series(event, calendar, overridden, interval, zone).occurrences();
}

std::optional<Occurrence> EventOccurrences::first(icalcomponent* event, icalcomponent* calendar,
                                                  const TimeZone& zone) {
    static const ExceptedTimes none;
    return Series(event, calendar, none, {}, zone).first();
}

} // namespace vantrel
