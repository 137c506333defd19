#include "Vantrel/platform/macos/WholeDays.h"

namespace vantrel::WholeDays {

Date endOfDay(Date date, const TimeZone& zone) {
    const std::chrono::local_days today(zone.localTime(date).day);
    return zone.date(today) == date ? date : zone.date(today + std::chrono::days(1));
}

} // namespace vantrel::WholeDays
