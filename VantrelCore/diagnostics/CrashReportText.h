// What crash reports say, word for word. docs/diagnostics.md tells what they may hold and what never.
#pragma once

#include "VantrelCore/diagnostics/SystemDescription.h"

#include <string>
#include <string_view>

namespace vantrel::CrashReportText {

// A signal's report: this, the signal's name, a newline, the header, the separator, one frame a line.
inline constexpr std::string_view signalOpening = "kind: signal\nsignal: ";
inline constexpr std::string_view exceptionOpening = "kind: exception\n";
inline constexpr std::string_view separator = "\n---\n";

struct UncaughtException {
    // Its type.
    std::string name;
    // As `shareableReason` leaves it.
    std::string reason;
    // One frame each, joined by newlines.
    std::string callStack;
};

// Four lines without a newline behind the last.
[[nodiscard]] std::string header(const SystemDescription& system);

[[nodiscard]] std::string exceptionReport(std::string_view header, const UncaughtException& exception);

// An exception's own text without what may be the user's: whatever stands in quotes (as the JSON library
// quotes what it could not read), everything that looks like a path or an address, all but plain ASCII and
// all beyond the first line become "…". Our own exceptions name titles and files in quotes only.
[[nodiscard]] std::string shareableReason(std::string_view reason);

// The line of one frame as the system's symbolizer writes it, without the folders of the module, which may
// be below the user's home. Allocates nothing.
[[nodiscard]] std::string_view withoutFolders(std::string_view frame);

} // namespace vantrel::CrashReportText
