// Where calendar programs keep their .ics files, and which of them there are.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vantrel {

struct CalendarFile {
    std::filesystem::path path;
    // What another content changes.
    std::filesystem::file_time_type modified;
    std::uintmax_t size = 0;

    bool operator==(const CalendarFile&) const = default;
};

namespace CalendarFiles {

// Deeper folders and more files than these are not looked at: somebody has named a folder of something else.
inline constexpr int deepest = 4;
inline constexpr std::size_t most = 20'000;

// Evolution and GNOME Calendar, khal, vdirsyncer, KOrganizer, Orage. `data` is the folder that
// $XDG_DATA_HOME names.
[[nodiscard]] std::vector<std::filesystem::path> usualPlaces(const std::filesystem::path& home,
                                                             const std::filesystem::path& data);

// The place that a user wrote, "~" being the home folder.
[[nodiscard]] std::filesystem::path place(const std::string& written, const std::filesystem::path& home);

struct Found {
    // At least one of the places is there and may be read.
    bool hasAccess = false;
    // By path.
    std::vector<CalendarFile> files;
};

// The files in folders and what is below them; a place may also be a file itself. Hidden files and folders
// are left out.
[[nodiscard]] Found in(const std::vector<std::filesystem::path>& places);

} // namespace CalendarFiles

} // namespace vantrel
