// The user's calendars, from the .ics files that calendar and sync programs keep.
#pragma once

#include "Vantrel/platform/ical/CalendarFiles.h"
#include "Vantrel/platform/ical/EventOccurrences.h"
#include "VantrelCore/ports/CalendarReader.h"

#include <map>
#include <mutex>

namespace vantrel {

// Nobody is asked for access: whoever may read the files has it. A file is read again when it has changed,
// and once a day; between, a reading costs a look at the folders. A file that cannot be read or understood
// is left out and told once.
class IcalCalendarReader final : public CalendarReader {
public:
    using Log = std::function<void(const std::string& message)>;

    // Seconds ahead of a query for which the events of a file are kept.
    static constexpr double keptSeconds = 24 * 3600;
    static constexpr std::uintmax_t largestFile = 64U << 20U;

    // `log` may be called on any thread. `home` and `data` are the user's home folder and the one that
    // $XDG_DATA_HOME names.
    IcalCalendarReader(std::filesystem::path home, std::filesystem::path data, Log log);

    void requestAccessIfNeeded(std::function<void()> done) override;
    [[nodiscard]] CalendarReading read(const CalendarQuery& query) override;

    // How many files the last reading had to read.
    [[nodiscard]] std::size_t filesRead() const { return m_filesRead; }

private:
    struct Kept {
        CalendarFile file;
        CalendarInterval interval;
        TimeZone zone = TimeZone::utc();
        std::vector<CalendarEvent> events;

        [[nodiscard]] bool answers(const CalendarFile& now, const CalendarQuery& query) const;
    };

    [[nodiscard]] Kept readFile(const CalendarFile& file, const CalendarQuery& query);

    std::filesystem::path m_home;
    std::filesystem::path m_data;
    Log m_log;
    std::mutex m_mutex;
    std::map<std::filesystem::path, Kept> m_kept;
    std::size_t m_filesRead = 0;
};

} // namespace vantrel
