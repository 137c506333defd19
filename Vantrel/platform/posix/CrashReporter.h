// Writes a small text file when the program crashes: the signal or the uncaught exception, the header, the
// stack of the thread that crashed. The process then ends as it would have ended without.
#pragma once

#include "VantrelCore/diagnostics/CrashReportText.h"
#include "VantrelCore/diagnostics/SystemDescription.h"

#include <cstdint>
#include <filesystem>

namespace vantrel::CrashReporter {

// Creates the crashes folder and has the crash signals of every thread reported from now on. Once, early, on
// the main thread. When the folder cannot be used, crashes stay unreported, silently.
//
// A stack overflow is reported on threads that hold an AlternateSignalStack; the caller's gets one here.
// While a report is written, a second fault ends the process at once, by the first one's signal, and so
// does the clock when it takes longer than ten seconds; other threads that crash meanwhile wait for the end.
void install(const std::filesystem::path& supportDirectory, const SystemDescription& system);

// What becomes of uncaught exceptions that are not the standard library's.
enum class OtherExceptions : std::uint8_t {
    reportHere,
    // The runtime of another language hands them to `reportUncaught`, out of the terminate handler that was
    // there before. Objective-C's does.
    comeFromTheirRuntime,
};

// Has uncaught exceptions reported with name and reason, which the signal alone (SIGABRT) would not have.
// After `install`.
void installExceptionHandler(OtherExceptions other = OtherExceptions::reportHere);

// Reports an exception that ends the process; the SIGABRT that follows is not reported once more.
void reportUncaught(const CrashReportText::UncaughtException& exception);

// Inside the application-support folder.
[[nodiscard]] std::filesystem::path crashesDirectory(const std::filesystem::path& supportDirectory);

} // namespace vantrel::CrashReporter
