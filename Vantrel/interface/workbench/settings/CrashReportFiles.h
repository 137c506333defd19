// The crash reports on disk, for the user to look at and delete.
#pragma once

#include "Vantrel/controller/RecentDeletions.h"
#include "VantrelCore/model/Date.h"
#include "VantrelCore/ports/FileSystem.h"

#include <expected>
#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::CrashReportFiles {

struct Report {
    std::filesystem::path file;
    // When the program crashed.
    Date date{};

    bool operator==(const Report&) const = default;
};

// Newest first; empty if the folder cannot be listed.
[[nodiscard]] std::vector<Report> in(FileSystem& files, const std::filesystem::path& folder);

// Returns how to put the reports back, or a sentence that says why none was deleted. `files` must outlive the
// result.
[[nodiscard]] std::expected<RecentDeletions::PutBack, std::string>
remove(FileSystem& files, const std::vector<std::filesystem::path>& reports);

} // namespace vantrel::CrashReportFiles
