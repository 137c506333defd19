// The text of crash reports. docs/diagnostics.md says what they may contain and what they never do.
#pragma once

#include "VantrelCore/diagnostics/SystemDescription.h"

#include <string>
#include <string_view>

namespace vantrel::CrashReportText {

// A signal report: this, the signal's name, a newline, the header, the separator, one frame per line.
inline constexpr std::string_view signalOpening = "kind: signal\nsignal: ";
inline constexpr std::string_view exceptionOpening = "kind: exception\n";
inline constexpr std::string_view separator = "\n---\n";

struct UncaughtException {
    // The exception's type.
    std::string name;
    // From `shareableReason`.
    std::string reason;
    // Frames joined by newlines.
    std::string callStack;
};

// Four lines, without a final newline.
[[nodiscard]] std::string header(const SystemDescription& system);

[[nodiscard]] std::string exceptionReport(std::string_view header, const UncaughtException& exception);

// An exception's text without anything that may be the user's. Quoted text (the JSON library quotes what it
// could not parse), anything that looks like a path or an address, and anything but plain ASCII become "…";
// only the first line is kept. Our own exceptions name titles and files in quotes only.
[[nodiscard]] std::string shareableReason(std::string_view reason);

// A frame as written by the system's symbolizer, without the module's folders, which may be in the user's
// home. Does not allocate.
[[nodiscard]] std::string_view withoutFolders(std::string_view frame);

} // namespace vantrel::CrashReportText
