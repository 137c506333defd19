// Which of the crash reports found at a start are sent, and which go because there are too many.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <cstddef>
#include <vector>

namespace vantrel::PendingCrashReports {

// The crashes folder never holds more after a start.
inline constexpr std::size_t most = 5;

struct Plan {
    // The newest `most`, in the order in which they are sent: oldest first.
    std::vector<std::filesystem::path> pending;
    // Older ones, to be deleted.
    std::vector<std::filesystem::path> surplus;

    bool operator==(const Plan&) const = default;
};

// Files without the extension of reports are left alone.
[[nodiscard]] Plan plan(std::vector<FileEntry> folder);

} // namespace vantrel::PendingCrashReports
