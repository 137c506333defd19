// Measures reading a folder of calendar files with one event each, as sync programs store them: the first
// time, and when no file has changed.
#include "Vantrel/platform/ical/IcalCalendarReader.h"
#include "Vantrel/platform/posix/ZoneDatabase.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <fstream>

namespace vantrel {
namespace {

constexpr const char* zone =
    "BEGIN:VTIMEZONE\r\nTZID:Europe/Berlin\r\nBEGIN:DAYLIGHT\r\nTZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\n"
    "DTSTART:19700329T020000\r\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\r\nEND:DAYLIGHT\r\nBEGIN:STANDARD\r\n"
    "TZOFFSETFROM:+0200\r\nTZOFFSETTO:+0100\r\nDTSTART:19701025T030000\r\n"
    "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n";

// Events over seventeen years, every fifth of them weekly.
void fill(const std::filesystem::path& folder, std::int64_t files) {
    for (std::int64_t i = 0; i < files; ++i) {
        std::ofstream(folder / fmt::format("{}.ics", i))
            << "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n"
            << zone
            << fmt::format("BEGIN:VEVENT\r\nUID:{0}\r\nSUMMARY:Event {0}\r\n"
                           "DTSTART;TZID=Europe/Berlin:20{1:02}{2:02}{3:02}T{4:02}0000\r\nDURATION:PT30M\r\n"
                           "DESCRIPTION:https://meet.google.com/{0}\r\n{5}END:VEVENT\r\nEND:VCALENDAR\r\n",
                           i, 10 + i % 17, 1 + i % 12, 1 + i % 28, i % 24,
                           i % 5 == 0 ? "RRULE:FREQ=WEEKLY\r\n" : "");
    }
}

// From the system's zone database.
std::optional<TimeZone> zoneNamed(const std::string& name) {
    static ZoneDatabase zones;
    return zones.named(name);
}

CalendarQuery query(const std::filesystem::path& folder) {
    const Date from{std::chrono::sys_days{std::chrono::year{2026} / 11 / 21}};
    return {.from = from, .to = dateAfter(from, 61), .folders = {folder.string()}};
}

void readCalendarFolder(benchmark::State& state) {
    const TemporaryFolder folder;
    fill(folder.path(), state.range(0));
    for ([[maybe_unused]] auto _ : state) {
        IcalCalendarReader reader(folder.path(), folder.path(), zoneNamed, [](const std::string&) {});
        auto reading = reader.read(query(folder.path()));
        benchmark::DoNotOptimize(reading);
    }
    state.SetComplexityN(state.range(0));
}

void readUnchangedCalendarFolder(benchmark::State& state) {
    const TemporaryFolder folder;
    fill(folder.path(), state.range(0));
    IcalCalendarReader reader(folder.path(), folder.path(), zoneNamed, [](const std::string&) {});
    auto first = reader.read(query(folder.path()));
    benchmark::DoNotOptimize(first);
    for ([[maybe_unused]] auto _ : state) {
        auto reading = reader.read(query(folder.path()));
        benchmark::DoNotOptimize(reading);
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(readCalendarFolder)->Arg(100)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(readUnchangedCalendarFolder)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(5000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace
} // namespace vantrel
