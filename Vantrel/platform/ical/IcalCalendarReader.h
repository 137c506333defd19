// Reads the user's calendars from the .ics files that calendar and sync programs keep.
#pragma once

#include "Vantrel/platform/ical/CalendarContext.h"
#include "Vantrel/platform/ical/CalendarFiles.h"
#include "VantrelCore/ports/CalendarReader.h"

#include <map>
#include <mutex>

namespace vantrel {

// Needs no permission beyond read access to the files. Rereads a file when it or the system's rules for one
// of its zones change, and once a day; otherwise a reading only lists the folders. Skips files that cannot be
// read or parsed and logs each once. Reads files that take too long only in part. A whole reading takes at
// most 20 seconds; the rest is read next time.
class IcalCalendarReader final : public CalendarReader {
public:
    using Log = std::function<void(const std::string& message)>;

    // How many seconds after a query's start the cached events of a file cover.
    static constexpr double keptSeconds = 24 * 3600;
    static constexpr std::uintmax_t largestFile = 64U << 20U;

    static constexpr CalendarBudget::Limits fileLimits{.steps = 1'000'000, .time = std::chrono::seconds{5}};
    static constexpr CalendarBudget::Limits readingLimits{.steps = 10'000'000,
                                                          .time = std::chrono::seconds{20}};

    // Calls `log` and `zoneNamed` on the reading thread. `home` is the user's home folder and `data` is
    // $XDG_DATA_HOME.
    IcalCalendarReader(std::filesystem::path home, std::filesystem::path data, ZoneByName zoneNamed, Log log);

    void requestAccessIfNeeded(std::function<void()> done) override;
    [[nodiscard]] CalendarReading read(const CalendarQuery& query) override;

    // How many files the last call of read() had to read.
    [[nodiscard]] std::size_t filesRead() const { return m_filesRead; }

private:
    using Zones = std::map<std::string, TimeZone>;

    struct Kept {
        CalendarFile file;
        CalendarInterval interval;
        TimeZone zone = TimeZone::utc();
        // The system zones that its events use.
        Zones zones;
        std::vector<CalendarEvent> events;
    };

    [[nodiscard]] bool isStillValid(const Kept& kept, const CalendarFile& now, const CalendarQuery& query);
    // Returns none if the overall budget ran out before the file was read.
    [[nodiscard]] std::optional<Kept> readFile(const CalendarFile& file, const CalendarQuery& query,
                                               CalendarBudget& budget);
    [[nodiscard]] std::optional<TimeZone> zoneNow(const std::string& name);

    std::filesystem::path m_home;
    std::filesystem::path m_data;
    ZoneByName m_zoneNamed;
    Log m_log;
    std::mutex m_mutex;
    std::map<std::filesystem::path, Kept> m_kept;
    // The system zones as of this reading.
    Zones m_zonesNow;
    std::size_t m_filesRead = 0;
    bool m_wasCutShort = false;
};

} // namespace vantrel
