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

IcalCalendarReader::IcalCalendarReader(std::filesystem::path home, std::filesystem::path data, Log log)
    : m_home(std::move(home)), m_data(std::move(data)), m_log(std::move(log)) {}

void IcalCalendarReader::requestAccessIfNeeded(std::function<void()> done) {
    done();
}

bool IcalCalendarReader::Kept::answers(const CalendarFile& now, const CalendarQuery& query) const {
    return file == now && zone == query.zone && interval.from <= query.from && query.to <= interval.to;
}

IcalCalendarReader::Kept IcalCalendarReader::readFile(const CalendarFile& file, const CalendarQuery& query) {
    ++m_filesRead;
    const CalendarInterval interval{query.from, std::max(query.to, dateAfter(query.from, keptSeconds))};
    const auto text = content(file);
    Events events =
        text ? CalendarText::events(*text, interval, query.zone) : Events(std::unexpected(text.error()));
    if (events) {
        return {file, interval, query.zone, std::move(*events)};
    }
    const auto known = m_kept.find(file.path);
    if (known == m_kept.end() || known->second.file != file) {
        m_log(fmt::format("calendar: {} is left out: {}", file.path.string(), events.error()));
    }
    return {file, interval, query.zone, {}};
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
    CalendarReading reading{.hasAccess = found.hasAccess, .events = {}};
    std::map<std::filesystem::path, Kept> kept;
    for (const CalendarFile& file : found.files) {
        auto known = m_kept.find(file.path);
        auto& events = kept.emplace(file.path, known != m_kept.end() && known->second.answers(file, query)
                                                   ? std::move(known->second)
                                                   : readFile(file, query))
                           .first->second.events;
        std::ranges::copy_if(events, std::back_inserter(reading.events), [&](const CalendarEvent& event) {
            return event.start <= query.to && event.end >= query.from;
        });
    }
    m_kept = std::move(kept);
    std::ranges::stable_sort(reading.events, {}, &CalendarEvent::start);
    return reading;
}

} // namespace vantrel
