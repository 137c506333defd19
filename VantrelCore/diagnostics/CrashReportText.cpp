#include "VantrelCore/diagnostics/CrashReportText.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::CrashReportText {

namespace {

constexpr std::size_t longestReason = 300;
constexpr std::string_view leftOut = "…";

// Keeps the system's description of itself on one line.
std::string oneLine(std::string text) {
    std::ranges::replace_if(text, [](char c) { return (c >= 0 && c < ' ') || c == '\x7f'; }, ' ');
    return text;
}

bool isPlain(std::string_view word) {
    return std::ranges::all_of(word, [](char c) { return c > ' ' && c <= '~' && c != '/' && c != '@'; });
}

// Removes from the first quote to the last, as quoted text may contain quotes.
std::string withoutQuoted(std::string_view text) {
    constexpr std::string_view quotes = "\"'`";
    const auto first = text.find_first_of(quotes);
    if (first == std::string_view::npos) {
        return std::string(text);
    }
    const auto last = text.find_last_of(quotes);
    // A single quote may open text that was cut off.
    const auto rest = last == first ? std::string_view() : text.substr(last + 1);
    return std::string(text.substr(0, first)).append(leftOut).append(rest);
}

} // namespace

std::string header(const SystemDescription& system) {
    return fmt::format("version: {}\nbuild: {}\nsystem: {}\nhardware: {}", oneLine(system.version),
                       oneLine(system.build), oneLine(system.operatingSystem), oneLine(system.hardware));
}

std::string exceptionReport(std::string_view header, const UncaughtException& exception) {
    return fmt::format("{}{}\nname: {}\nreason: {}{}{}\n", exceptionOpening, header, exception.name,
                       exception.reason, separator, exception.callStack);
}

std::string shareableReason(std::string_view reason) {
    // Quotes first: a quoted title may contain a line break.
    const std::string unquoted = withoutQuoted(reason);
    const auto text = std::string_view(unquoted).substr(0, std::min(unquoted.find('\n'), longestReason));
    std::string shareable;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(' ', start), text.size());
        const auto word = text.substr(start, end - start);
        if (!word.empty()) {
            shareable += shareable.empty() ? "" : " ";
            shareable += isPlain(word) ? word : leftOut;
        }
        start = end + 1;
    }
    return shareable;
}

std::string_view withoutFolders(std::string_view frame) {
    const auto slash = frame.rfind('/');
    return slash == std::string_view::npos ? frame : frame.substr(slash + 1);
}

} // namespace vantrel::CrashReportText
