// The system's time zones: the files of the tz database, which the system keeps up to date.
#pragma once

#include "VantrelCore/model/TimeZone.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace vantrel {

// Not shared between threads.
class ZoneDatabase {
public:
    // The folder that TZDIR names, else where systems keep them.
    [[nodiscard]] static std::filesystem::path systemFolder();

    explicit ZoneDatabase(std::filesystem::path folder = systemFolder()) : m_folder(std::move(folder)) {}

    // The zone of that name ("Europe/Berlin") as its file is now: asked again after the system has renewed
    // the file, it answers with the new rules. None when there is no such zone; a name may be anything.
    [[nodiscard]] std::optional<TimeZone> named(const std::string& name);

    // The same for a file by its path, wherever it lies.
    [[nodiscard]] std::optional<TimeZone> at(const std::filesystem::path& file);

private:
    // What another content of a file changes.
    struct FileMark {
        unsigned long long device = 0;
        unsigned long long inode = 0;
        long long size = 0;
        long long modifiedSeconds = 0;
        long long modifiedNanoseconds = 0;

        bool operator==(const FileMark&) const = default;
    };

    struct Known {
        FileMark mark;
        TimeZone zone = TimeZone::utc();
    };

    [[nodiscard]] static std::optional<FileMark> mark(int descriptor);

    std::filesystem::path m_folder;
    std::map<std::filesystem::path, Known> m_known;
};

} // namespace vantrel
