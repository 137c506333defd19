// Where a thrown error ends: around background work, timers, bus methods and X events. It becomes a line of
// the log and a false result, instead of the end of the program.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace vantrel::ErrorBoundary {

// Takes a line for the log, on the thread whose work threw.
using Log = std::function<void(const std::string& line)>;

// Tells `log` of the exception that is being handled.
void logCaught(std::string_view area, const Log& log) noexcept;

// Runs `work`. False when it threw; `log` has then been told "`area`: stopped by an error: " and what.
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
