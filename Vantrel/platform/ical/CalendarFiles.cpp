#include "Vantrel/platform/ical/CalendarFiles.h"

#include <algorithm>

namespace vantrel::CalendarFiles {

namespace {

namespace fs = std::filesystem;

bool isHidden(const fs::path& path) {
    return path.filename().string().starts_with('.');
}

void addFile(const fs::path& path, std::vector<CalendarFile>& files) {
    std::error_code error;
    const auto modified = fs::last_write_time(path, error);
    const auto size = error ? 0 : fs::file_size(path, error);
    // Skip it if it has vanished or is not a file.
    if (!error) {
        files.push_back({path, modified, size});
    }
}

// Returns false if the folder cannot be read.
bool addFolder(const fs::path& folder, std::vector<CalendarFile>& files) {
    std::error_code error;
    fs::recursive_directory_iterator each(folder,
                                          fs::directory_options::follow_directory_symlink |
                                              fs::directory_options::skip_permission_denied,
                                          error);
    if (error) {
        return false;
    }
    std::ranges::subrange entries(each, fs::recursive_directory_iterator{});
    for (auto entry = entries.begin(); entry != entries.end() && files.size() < most;) {
        const fs::path& path = entry->path();
        std::error_code ignored;
        if (entry->is_directory(ignored)) {
            if (isHidden(path) || entry.depth() + 1 >= deepest) {
                entry.disable_recursion_pending();
            }
        } else if (path.extension() == ".ics" && !isHidden(path)) {
            addFile(path, files);
        }
        if (entry.increment(error); error) {
            break;
        }
    }
    return true;
}

} // namespace

std::vector<fs::path> usualPlaces(const fs::path& home, const fs::path& data) {
    return {data / "evolution/calendar", data / "khal/calendars", data / "vdirsyncer", data / "calendars",
            home / ".calendars",         data / "korganizer",     data / "orage"};
}

fs::path place(const std::string& written, const fs::path& home) {
    if (written == "~") {
        return home;
    }
    return written.starts_with("~/") ? home / written.substr(2) : fs::path(written);
}

Found in(const std::vector<fs::path>& places) {
    Found found;
    for (const auto& place : places) {
        std::error_code ignored;
        if (fs::is_regular_file(place, ignored)) {
            addFile(place, found.files);
            found.hasAccess = true;
        } else if (addFolder(place, found.files)) {
            found.hasAccess = true;
        }
    }
    std::ranges::sort(found.files, {}, &CalendarFile::path);
    const auto repeated = std::ranges::unique(found.files, {}, &CalendarFile::path);
    found.files.erase(repeated.begin(), repeated.end());
    return found;
}

} // namespace vantrel::CalendarFiles
