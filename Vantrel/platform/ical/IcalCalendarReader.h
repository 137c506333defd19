// The user's calendars, from the .ics files that calendar and sync programs keep.
#pragma once

#include "Vantrel/platform/ical/CalendarContext.h"
#include "Vantrel/platform/ical/CalendarFiles.h"
#include "VantrelCore/ports/CalendarReader.h"

#include <map>
#include <mutex>

namespace vantrel {

// Nobody is asked for access: whoever may read the files has it. A file is read again when it has changed,
// or the system's rules for one of its zones have, and once a day; between, a reading costs a look at the
// folders. A file that cannot be read or understood is left out and told once; one that takes too long is
// read in part. A whole reading takes 20 seconds at most: what it has not come to is read the next time.
class IcalCalendarReader final : public CalendarReader {
public:
    using Log = std::function<void(const std::string& message)>;

    // Seconds ahead of a query for which the events of a file are kept.
    static constexpr double keptSeconds = 24 * 3600;
    static constexpr std::uintmax_t largestFile = 64U << 20U;

    static constexpr CalendarBudget::Limits fileLimits{.steps = 1'000'000, .time = std::chrono::seconds{5}};
    static constexpr CalendarBudget::Limits readingLimits{.steps = 10'000'000,
                                                          .time = std::chrono::seconds{20}};

    // `log` and `zoneNamed` are called on the thread that reads. `home` and `data` are the user's home folder
    // and the one that $XDG_DATA_HOME names.
    IcalCalendarReader(std::filesystem::path home, std::filesystem::path data, ZoneByName zoneNamed, Log log);

    void requestAccessIfNeeded(std::function<void()> done) override;
    [[nodiscard]] CalendarReading read(const CalendarQuery& query) override;

    // How many files the last reading had to read.
    [[nodiscard]] std::size_t filesRead() const { return m_filesRead; }

private:
    using Zones = std::map<std::string, TimeZone>;

    struct Kept {
        CalendarFile file;
        CalendarInterval interval;
        TimeZone zone = TimeZone::utc();
        // Those of the system that its events are in.
        Zones zones;
        std::vector<CalendarEvent> events;
    };

    [[nodiscard]] bool answers(const Kept& kept, const CalendarFile& now, const CalendarQuery& query);
    // None when the budget of the whole reading ended before the file did.
    [[nodiscard]] std::optional<Kept> readFile(const CalendarFile& file, const CalendarQuery& query,
                                               CalendarBudget& budget);
    [[nodiscard]] std::optional<TimeZone> zoneNow(const std::string& name);

    std::filesystem::path m_home;
    std::filesystem::path m_data;
    ZoneByName m_zoneNamed;
    Log m_log;
    std::mutex m_mutex;
    std::map<std::filesystem::path, Kept> m_kept;
    // As they are in this reading.
    Zones m_zonesNow;
    std::size_t m_filesRead = 0;
    bool m_wasCutShort = false;
};

} // namespace vantrel
