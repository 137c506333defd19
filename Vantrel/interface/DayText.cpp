#include "Vantrel/interface/DayText.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"

#include <array>

namespace vantrel::DayText {

namespace {

constexpr std::array weekdays{marked("Sunday"),   marked("Monday"), marked("Tuesday"), marked("Wednesday"),
                              marked("Thursday"), marked("Friday"), marked("Saturday")};
constexpr std::array months{marked("January"),   marked("February"), marked("March"),    marked("April"),
                            marked("May"),       marked("June"),     marked("July"),     marked("August"),
                            marked("September"), marked("October"),  marked("November"), marked("December")};

std::chrono::sys_days localDay(Date date, const TimeZone& zone) {
    return zone.localTime(date).day;
}

} // namespace

std::string date(Date date, Date now, const TimeZone& zone) {
    const auto local = zone.localTime(date).day;
    const auto number = static_cast<unsigned>(local.day());
    const std::string month = tr(months.at(static_cast<unsigned>(local.month()) - 1));
    const auto year = static_cast<int>(local.year());
    return local.year() == zone.localTime(now).day.year() ? trf("{0} {1}", number, month)
                                                          : trf("{0} {1} {2}", number, month, year);
}

std::string day(Date date, Date now, const TimeZone& zone) {
    const auto day = localDay(date, zone);
    const auto age = (localDay(now, zone) - day).count();
    if (age >= -1 && age <= 1) {
        return age == 0 ? tr("Today") : age == 1 ? tr("Yesterday") : tr("Tomorrow");
    }
    constexpr int week = 7;
    return age > 1 && age < week ? tr(weekdays.at(std::chrono::weekday(day).c_encoding()))
                                 : DayText::date(date, now, zone);
}

std::string time(Date date, const TimeZone& zone) {
    const LocalTime local = zone.localTime(date);
    return SceneTriggerFormatting::timeString(local.hour, local.minute);
}

} // namespace vantrel::DayText
