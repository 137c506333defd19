// Writes a small text file when the program crashes: the signal or the uncaught exception, the header and the
// stack of the crashed thread. The process then ends as it would have without this.
#pragma once

#include "VantrelCore/diagnostics/CrashReportText.h"
#include "VantrelCore/diagnostics/SystemDescription.h"

#include <cstdint>
#include <filesystem>

namespace vantrel::CrashReporter {

// Creates the crashes folder and installs the signal handlers for all threads. Call once, early, on the main
// thread. If the folder cannot be used, crashes are silently not reported.
//
// Stack overflows are reported on threads with an AlternateSignalStack; the calling thread gets one here. A
// second fault on the reporting thread, or a report that takes longer than ten seconds, ends the process at
// once with the first signal. Other threads that crash meanwhile wait for the end.
void install(const std::filesystem::path& supportDirectory, const SystemDescription& system);

// How to handle uncaught exceptions not derived from std::exception.
enum class OtherExceptions : std::uint8_t {
    reportHere,
    // Another language's runtime passes them to `reportUncaught` from the previous terminate handler, as
    // Objective-C's does.
    reportedByRuntime,
};

// Reports uncaught exceptions with name and reason, which SIGABRT alone would not give. Call after `install`.
void installExceptionHandler(OtherExceptions other = OtherExceptions::reportHere);

// Reports an exception that ends the process. The SIGABRT that follows is not reported again.
void reportUncaught(const CrashReportText::UncaughtException& exception);

// Inside the application-support folder.
[[nodiscard]] std::filesystem::path crashesDirectory(const std::filesystem::path& supportDirectory);

} // namespace vantrel::CrashReporter
