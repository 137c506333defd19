#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <exception>
#include <fmt/format.h>

namespace vantrel::ErrorBoundary {

namespace {

std::string caughtText() {
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "unknown exception";
    }
}

} // namespace

void logCaught(std::string_view area, const Log& log) noexcept {
    try {
        if (log) {
            log(fmt::format("{}: stopped by an error: {}", area, caughtText()));
        }
    } catch (...) {
        // Not even enough memory for the log line; the work has ended all the same.
        return;
    }
}

} // namespace vantrel::ErrorBoundary
