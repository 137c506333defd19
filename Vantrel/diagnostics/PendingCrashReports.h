// Decides which of the crash reports found at startup are sent, and which are deleted because there are too
// many.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <cstddef>
#include <vector>

namespace vantrel::PendingCrashReports {

// After startup the crashes folder holds at most this many.
inline constexpr std::size_t most = 5;

struct Plan {
    // The newest `most` reports, in sending order: oldest first.
    std::vector<std::filesystem::path> pending;
    // Older reports, to be deleted.
    std::vector<std::filesystem::path> surplus;

    bool operator==(const Plan&) const = default;
};

// Ignores files without the extension of reports.
[[nodiscard]] Plan plan(std::vector<FileEntry> folder);

} // namespace vantrel::PendingCrashReports
