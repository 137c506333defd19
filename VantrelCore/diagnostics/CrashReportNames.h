// Names of crash reports: one file per crash, in their own folder, for example "1766340000-signal.crash".
#pragma once

#include <filesystem>
#include <string_view>

namespace vantrel::CrashReportNames {

// Inside the application-support folder.
inline constexpr std::string_view folder = "crashes";
inline constexpr std::string_view extension = ".crash";

[[nodiscard]] inline bool isReport(const std::filesystem::path& file) {
    return file.extension().string() == extension;
}

// Preceded by the time of the crash, in whole seconds since 1970.
inline constexpr std::string_view signalEnding = "-signal.crash";
inline constexpr std::string_view exceptionEnding = "-exception.crash";

} // namespace vantrel::CrashReportNames
