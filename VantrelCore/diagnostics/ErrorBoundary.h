// Catches exceptions around background work, timers, bus methods and X events. An exception becomes a log
// line and a false result instead of ending the program.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace vantrel::ErrorBoundary {

// Receives a log line, on the thread whose work threw.
using Log = std::function<void(const std::string& line)>;

// Logs the exception currently being handled.
void logCaught(std::string_view area, const Log& log) noexcept;

// Runs `work`. False if it threw; the log then has the line "`area`: stopped by an error: " with the error.
template <typename Work>
bool run(std::string_view area, const Log& log, Work&& work) noexcept {
    try {
        std::forward<Work>(work)();
        return true;
    } catch (...) {
        logCaught(area, log);
        return false;
    }
}

} // namespace vantrel::ErrorBoundary
