#include "benchmarks/TextTable.h"

#include <algorithm>
#include <cstddef>
#include <fmt/format.h>

namespace vantrel::bench {

namespace {

// Counts UTF-8 characters; in these strings each takes one terminal column.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; }));
}

} // namespace

std::string TextTable::text() const {
    std::vector<std::size_t> widths;
    for (const auto& row : m_rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], width(row[i]));
        }
    }
    std::string result;
    for (const auto& row : m_rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string gap(widths[i] - width(row[i]), ' ');
            result += i == 0 ? row[i] + gap : "  " + gap + row[i];
        }
        result += '\n';
    }
    return result;
}

std::string duration(double seconds) {
    const auto [scaled, unit] = seconds < 1e-3 ? std::pair(seconds * 1e6, "µs")
                                : seconds < 1  ? std::pair(seconds * 1e3, "ms")
                                               : std::pair(seconds, "s");
    return fmt::format("{:.{}f} {}", scaled, scaled < 10 ? 2 : scaled < 100 ? 1 : 0, unit);
}

} // namespace vantrel::bench
