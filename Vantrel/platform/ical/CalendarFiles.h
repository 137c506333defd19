// Finds the .ics files that calendar programs keep.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vantrel {

struct CalendarFile {
    std::filesystem::path path;
    // Changes when the content does.
    std::filesystem::file_time_type modified;
    std::uintmax_t size = 0;

    bool operator==(const CalendarFile&) const = default;
};

namespace CalendarFiles {

// Limits in case the user names a folder that is not for calendars.
inline constexpr int deepest = 4;
inline constexpr std::size_t most = 20'000;

// The folders of Evolution and GNOME Calendar, khal, vdirsyncer, KOrganizer and Orage. `data` is
// $XDG_DATA_HOME.
[[nodiscard]] std::vector<std::filesystem::path> usualPlaces(const std::filesystem::path& home,
                                                             const std::filesystem::path& data);

// The path that the user wrote, with "~" expanded to the home folder.
[[nodiscard]] std::filesystem::path place(const std::string& written, const std::filesystem::path& home);

struct Found {
    // At least one of the places exists and is readable.
    bool hasAccess = false;
    // Sorted by path.
    std::vector<CalendarFile> files;
};

// Returns the files in the given folders and their subfolders. A place may also be a file. Skips hidden files
// and folders.
[[nodiscard]] Found in(const std::vector<std::filesystem::path>& places);

} // namespace CalendarFiles

} // namespace vantrel
