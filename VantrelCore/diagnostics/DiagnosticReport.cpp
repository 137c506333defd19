#include "VantrelCore/diagnostics/DiagnosticReport.h"

#include <fmt/format.h>
#include <string_view>

namespace vantrel {

namespace {

constexpr std::size_t maxLogBytes = 100'000;

// Whole lines of at most this many bytes.
std::string_view endOf(std::string_view log) {
    if (log.size() <= maxLogBytes) {
        return log;
    }
    const auto begin = log.find('\n', log.size() - maxLogBytes);
    return begin == std::string_view::npos ? std::string_view() : log.substr(begin + 1);
}

std::string replaced(std::string text, const std::string& what, std::string_view by) {
    if (what.size() > 1) {
        for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
            text.replace(at, what.size(), by);
        }
    }
    return text;
}

} // namespace

std::string DiagnosticReport::text(const std::string& home) const {
    std::string text =
        fmt::format("Vantrel {}\n{}\n{}\n{}\n", version, operatingSystem, iso8601Text(date), phase);
    text += "\nDisplays\n";
    for (const DisplayInfo& display : displays) {
        text += fmt::format("  {}: {:g} x {:g} at {:g}, {:g}{}\n", display.name, display.frame.width(),
                            display.frame.height(), display.frame.minX(), display.frame.minY(),
                            display.isBuiltin ? ", built in" : "");
    }
    text += fmt::format("\nSettings\n{}", settings);
    text += "\nProblems\n";
    for (const std::string& problem : problems) {
        text += fmt::format("  {}\n", problem);
    }
    for (const std::string& report : crashReports) {
        text += fmt::format("\nCrash report\n{}\n", report);
    }
    text += fmt::format("\nLog\n{}", endOf(log));
    return replaced(std::move(text), home, "~");
}

} // namespace vantrel
