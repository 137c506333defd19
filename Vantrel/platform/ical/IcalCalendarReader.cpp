#include "Vantrel/platform/ical/IcalCalendarReader.h"

#include "Vantrel/platform/ical/CalendarText.h"

#include <algorithm>
#include <expected>
#include <fmt/format.h>
#include <fstream>
#include <iterator>
#include <utility>

namespace vantrel {

namespace {

using Events = std::expected<std::vector<CalendarEvent>, std::string>;

std::expected<std::string, std::string> content(const CalendarFile& file) {
    if (file.size > IcalCalendarReader::largestFile) {
        return std::unexpected("it is too large");
    }
    std::ifstream stream(file.path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad()) {
        return std::unexpected("it cannot be read");
    }
    return text;
}

} // namespace

IcalCalendarReader::IcalCalendarReader(std::filesystem::path home, std::filesystem::path data,
                                       ZoneByName zoneNamed, Log log)
    : m_home(std::move(home)), m_data(std::move(data)), m_zoneNamed(std::move(zoneNamed)),
      m_log(std::move(log)) {}

void IcalCalendarReader::requestAccessIfNeeded(std::function<void()> done) {
    done();
}

std::optional<TimeZone> IcalCalendarReader::zoneNow(const std::string& name) {
    const auto known = m_zonesNow.find(name);
    if (known != m_zonesNow.end()) {
        return known->second;
    }
    auto zone = m_zoneNamed(name);
    if (zone) {
        m_zonesNow.emplace(name, *zone);
    }
    return zone;
}

bool IcalCalendarReader::isStillValid(const Kept& kept, const CalendarFile& now, const CalendarQuery& query) {
    return kept.file == now && kept.zone == query.zone && kept.interval.from <= query.from &&
           query.to <= kept.interval.to && std::ranges::all_of(kept.zones, [this](const auto& zone) {
               return zoneNow(zone.first) == zone.second;
           });
}

std::optional<IcalCalendarReader::Kept>
IcalCalendarReader::readFile(const CalendarFile& file, const CalendarQuery& query, CalendarBudget& budget) {
    ++m_filesRead;
    Kept kept{.file = file,
              .interval = {query.from, std::max(query.to, dateAfter(query.from, keptSeconds))},
              .zone = query.zone,
              .zones = {},
              .events = {}};
    const ZoneByName zoneNamed = [&](const std::string& name) {
        auto zone = zoneNow(name);
        if (zone) {
            kept.zones.emplace(name, *zone);
        }
        return zone;
    };
    CalendarBudget fileBudget(fileLimits, budget);
    const auto text = content(file);
    Events events = text ? CalendarText::events(*text, {kept.interval, query.zone, zoneNamed, fileBudget})
                         : Events(std::unexpected(text.error()));
    if (budget.isSpent()) {
        return std::nullopt;
    }
    const auto known = m_kept.find(file.path);
    const bool isNew = known == m_kept.end() || known->second.file != file;
    if (!events && isNew) {
        m_log(fmt::format("calendar: {} is skipped: {}", file.path.string(), events.error()));
    } else if (fileBudget.isSpent() && isNew) {
        m_log(fmt::format(
            "calendar: {} is only partly read: it has too many events, or rules that take too long",
            file.path.string()));
    }
    kept.events = std::move(events).value_or(std::vector<CalendarEvent>());
    return kept;
}

CalendarReading IcalCalendarReader::read(const CalendarQuery& query) {
    const std::scoped_lock lock(m_mutex);
    std::vector<std::filesystem::path> places;
    for (const auto& folder : query.folders) {
        places.push_back(CalendarFiles::place(folder, m_home));
    }
    const auto found =
        CalendarFiles::in(places.empty() ? CalendarFiles::usualPlaces(m_home, m_data) : places);
    m_filesRead = 0;
    m_zonesNow.clear();
    CalendarBudget budget(readingLimits, query.stop);
    CalendarReading reading{.hasAccess = found.hasAccess, .events = {}};
    std::map<std::filesystem::path, Kept> kept;
    for (const CalendarFile& file : found.files) {
        auto known = m_kept.find(file.path);
        std::optional<Kept> now;
        if (known != m_kept.end() && isStillValid(known->second, file, query)) {
            now = std::move(known->second);
        } else if (budget.spend()) {
            now = readFile(file, query, budget);
        }
        if (now) {
            const auto& events = kept.emplace(file.path, std::move(*now)).first->second.events;
            std::ranges::copy_if(events, std::back_inserter(reading.events), [&](const CalendarEvent& event) {
                return event.start <= query.to && event.end >= query.from;
            });
        }
    }
    m_kept = std::move(kept);
    const bool isCutShort = budget.isSpent() && !query.stop.isStopRequested();
    if (isCutShort && !m_wasCutShort) {
        m_log("calendar: reading all files takes too long; the rest is read next time");
    }
    m_wasCutShort = isCutShort;
    std::ranges::stable_sort(reading.events, {}, &CalendarEvent::start);
    return reading;
}

} // namespace vantrel
