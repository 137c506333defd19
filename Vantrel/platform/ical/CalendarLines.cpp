#include "Vantrel/platform/ical/CalendarLines.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace vantrel::CalendarLines {

namespace {

constexpr const char* notACalendar = "it is not a calendar, or it is incomplete";

// For a property's name and parameters, in bytes.
constexpr std::size_t longestHead = 1000;
// In bytes. Larger than longestValue, because a list of dates holds several values.
constexpr std::size_t longestLine = std::size_t{1024} * 1024;

constexpr std::string_view texts[] = {
    "CONFERENCE", "DESCRIPTION",         "LOCATION",
    "SUMMARY",    "X-GOOGLE-CONFERENCE", "X-MICROSOFT-SKYPETEAMSMEETINGURL"};
constexpr std::string_view lists[] = {"EXDATE", "RDATE"};
constexpr std::string_view values[] = {"DTEND",      "DTSTART", "DURATION", "RECURRENCE-ID",
                                       "RRULE",      "STATUS",  "TZID",     "TZOFFSETFROM",
                                       "TZOFFSETTO", "UID",     "URL"};

template <std::size_t size>
bool contains(const std::string_view (&names)[size], std::string_view name) {
    return std::ranges::find(names, name) != std::end(names);
}

std::string upperCased(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return result;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? ""
                                           : text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

// Splits a text into lines and joins continuation lines.
class Unfolded {
public:
    explicit Unfolded(std::string_view text) : m_rest(text) {}

    // Returns false at the end.
    bool next(std::string& line) {
        line.clear();
        if (m_rest.empty()) {
            return false;
        }
        append(line);
        while (m_rest.starts_with(' ') || m_rest.starts_with('\t')) {
            m_rest.remove_prefix(1);
            append(line);
        }
        return true;
    }

private:
    void append(std::string& line) {
        const auto end = std::min(m_rest.find('\n'), m_rest.size());
        auto part = m_rest.substr(0, end);
        m_rest.remove_prefix(std::min(end + 1, m_rest.size()));
        if (part.ends_with('\r')) {
            part.remove_suffix(1);
        }
        line += part.substr(0, longestLine - std::min(line.size(), longestLine));
    }

    std::string_view m_rest;
};

// The start of the value, or npos if there is none. Parameters may contain a colon in quotes.
std::size_t valueOf(std::string_view line) {
    bool isQuoted = false;
    for (std::size_t i = 0; i < std::min(line.size(), longestHead); ++i) {
        if (line[i] == '"') {
            isQuoted = !isQuoted;
        } else if (line[i] == ':' && !isQuoted) {
            return i + 1;
        }
    }
    return std::string_view::npos;
}

class Sieve {
public:
    explicit Sieve(const std::function<void(std::string& line)>& take) : m_take(take) {}

    // Returns false if the line cannot belong to a calendar.
    bool add(const std::string& line) {
        const std::string name = upperCased(std::string_view(line).substr(0, line.find_first_of(":;")));
        const auto value = valueOf(line);
        if (name == "BEGIN" || name == "END") {
            const std::string component =
                upperCased(trimmed(line).substr(std::min(name.size() + 1, trimmed(line).size())));
            return name == "BEGIN" ? begin(component) : end(component);
        }
        if (m_open.empty()) {
            return trimmed(line).empty();
        }
        if (m_kept == m_open.size() && value != std::string_view::npos) {
            addProperty(line, name, value);
        }
        return true;
    }

    [[nodiscard]] bool isTooDeep() const { return m_open.size() > deepest; }

    [[nodiscard]] bool isWhole() const { return m_hasCalendar && m_open.empty(); }

private:
    [[nodiscard]] bool isWanted(std::string_view component) const {
        if (m_open.empty()) {
            return component == "VCALENDAR";
        }
        return m_open.back() == "VCALENDAR"
                   ? component == "VEVENT" || component == "VTIMEZONE"
                   : m_open.back() == "VTIMEZONE" && (component == "STANDARD" || component == "DAYLIGHT");
    }

    bool begin(const std::string& component) {
        if (m_open.empty() && component != "VCALENDAR") {
            return false;
        }
        const bool isKept = m_kept == m_open.size() && isWanted(component);
        m_open.push_back(component);
        if (isKept) {
            ++m_kept;
            pass("BEGIN:" + component);
        }
        return true;
    }

    bool end(const std::string& component) {
        if (m_open.empty() || m_open.back() != component) {
            return false;
        }
        if (m_kept == m_open.size()) {
            --m_kept;
            pass("END:" + component);
        }
        m_open.pop_back();
        m_hasCalendar = true;
        return true;
    }

    void addProperty(const std::string& line, const std::string& name, std::size_t value) {
        if (contains(texts, name)) {
            pass(line.substr(0, value + longestText));
        } else if (contains(values, name) && line.size() - value <= longestValue) {
            pass(line);
        } else if (contains(lists, name)) {
            // Split lists here: libical takes quadratic time to do so.
            for (std::size_t first = value; first <= line.size();) {
                const auto last = std::min(line.find(',', first), line.size());
                if (last - first <= longestValue) {
                    pass(line.substr(0, value) + line.substr(first, last - first));
                }
                first = last + 1;
            }
        }
    }

    void pass(std::string line) { m_take(line); }

    const std::function<void(std::string& line)>& m_take;
    std::vector<std::string> m_open;
    // How many of these were passed on, counted from the outermost.
    std::size_t m_kept = 0;
    bool m_hasCalendar = false;
};

} // namespace

std::expected<void, std::string> visit(std::string_view text, CalendarBudget& budget,
                                       const std::function<void(std::string& line)>& take) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    if (text.contains('\0')) {
        return std::unexpected(notACalendar);
    }
    Sieve sieve(take);
    Unfolded lines(text);
    for (std::string line; lines.next(line);) {
        if (!budget.spend()) {
            return {};
        }
        if (!sieve.add(line)) {
            return std::unexpected(notACalendar);
        }
        if (sieve.isTooDeep()) {
            return std::unexpected("its components are nested too deeply");
        }
    }
    return sieve.isWhole() ? std::expected<void, std::string>() : std::unexpected(notACalendar);
}

} // namespace vantrel::CalendarLines
