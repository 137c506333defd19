#include "Vantrel/platform/ical/Recurrence.h"

#include "Vantrel/platform/ical/IcalHandle.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace vantrel::Recurrence {

namespace {

using std::chrono::local_seconds;
using std::chrono::seconds;

// Larger than any offset from UTC.
constexpr std::chrono::days zoneMargin{2};
constexpr double maxTimesPerDay = 288;
// libical is this much slower with non-Gregorian calendars.
constexpr double otherCalendarFactor = 20;

template <std::size_t size>
std::size_t count(const short (&numbers)[size]) {
    return static_cast<std::size_t>(std::ranges::find(numbers, ICAL_RECURRENCE_ARRAY_MAX) -
                                    std::begin(numbers));
}

double timesPerDay(const icalrecurrencetype& rule) {
    const auto several = [](std::size_t count) {
        return static_cast<double>(std::max<std::size_t>(count, 1));
    };
    return several(count(rule.by_hour)) * several(count(rule.by_minute)) * several(count(rule.by_second));
}

// The maximum number of candidates that libical tries per day.
double triesPerDay(const icalrecurrencetype& rule) {
    const bool namesDays =
        count(rule.by_day) + count(rule.by_month_day) + count(rule.by_year_day) + count(rule.by_week_no) > 0;
    const auto months = static_cast<double>(std::max<std::size_t>(count(rule.by_month), 1));
    const double tries = [&] {
        switch (rule.freq) {
        case ICAL_HOURLY_RECURRENCE:
            return 24.0;
        case ICAL_DAILY_RECURRENCE:
            return 1.0;
        case ICAL_WEEKLY_RECURRENCE:
            return namesDays ? 1.0 : 1.0 / 7;
        case ICAL_MONTHLY_RECURRENCE:
            return namesDays ? 1.0 : 1.0 / 28;
        default:
            return (!namesDays ? months : count(rule.by_month) > 0 ? months * 31 : 366.0) / 365;
        }
    }();
    return tries * timesPerDay(rule) / std::max<double>(rule.interval, 1) *
           (rule.rscale != nullptr ? otherCalendarFactor : 1);
}

local_seconds shown(const CalendarTime& time, Date date) {
    const auto inUtc = std::chrono::floor<seconds>(date);
    return local_seconds{(inUtc + time.zone().offset(inUtc)).time_since_epoch()};
}

// The local time at which the rule ends, if it has an end.
std::optional<local_seconds> lastTime(const icalrecurrencetype& rule, const CalendarTime& start) {
    const CalendarTime until{rule.until, start.zone()};
    if (!until.isValid()) {
        return std::nullopt;
    }
    if (until.isWholeDay()) {
        // Not standard, but usually meant to include the whole last day.
        return until.local() + (start.isWholeDay() ? seconds{0} : std::chrono::days{1} - seconds{1});
    }
    return shown(start, until.date());
}

} // namespace

void follow(icalproperty* property, const CalendarTime& start, const CalendarInterval& interval,
            CalendarBudget& budget, const std::function<void(const CalendarTime&)>& visit) {
    auto rule = icalproperty_get_rrule(property);
    if (rule.freq < ICAL_HOURLY_RECURRENCE || rule.freq > ICAL_YEARLY_RECURRENCE ||
        timesPerDay(rule) > maxTimesPerDay) {
        return;
    }
    auto end = shown(start, interval.to) + zoneMargin;
    if (const auto last = lastTime(rule, start)) {
        end = std::min(end, *last);
    }
    auto begin = start.local();
    const auto wanted = shown(start, interval.from) - zoneMargin;
    CalendarTime first = start;
    // libical cannot skip ahead in rules with a count.
    const bool skips = rule.count == 0 && wanted > begin;
    if (skips && rule.freq == ICAL_HOURLY_RECURRENCE) {
        // libical 3.0.16 loses the phase of hourly rules when it skips ahead.
        const std::chrono::hours period{std::max<int>(rule.interval, 1)};
        begin += (wanted - begin) / period * period;
        first = start.at(begin);
    } else if (skips) {
        begin = wanted;
    }
    if (end < begin) {
        return;
    }
    const double perDay = triesPerDay(rule);
    const double days = std::chrono::duration<double, std::ratio<86400>>(end - begin).count();
    const double most = mostTries / perDay;
    if (days > most) {
        end = begin + seconds{std::llround(most * 86400)};
    }
    if (!budget.spend(std::llround(std::min(days, most) * perDay) + 1)) {
        return;
    }
    rule.until = start.at(end).onTheClock();
    const IcalIterator iterator(icalrecur_iterator_new(rule, first.onTheClock()));
    if (!iterator || (skips && rule.freq != ICAL_HOURLY_RECURRENCE &&
                      icalrecur_iterator_set_start(iterator.get(), start.at(begin).onTheClock()) == 0)) {
        return;
    }
    while (budget.spend()) {
        const CalendarTime next{icalrecur_iterator_next(iterator.get()), start.zone()};
        if (!next.isValid() || next.local() > end) {
            return;
        }
        visit(next);
    }
}

} // namespace vantrel::Recurrence
