// Reads time zones from the system's tz database, which system updates may change.
#pragma once

#include "VantrelCore/model/TimeZone.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace vantrel {

// Not thread-safe.
class ZoneDatabase {
public:
    // TZDIR if set, else the usual system folder.
    [[nodiscard]] static std::filesystem::path systemFolder();

    explicit ZoneDatabase(std::filesystem::path folder = systemFolder()) : m_folder(std::move(folder)) {}

    // Returns the named zone ("Europe/Berlin") as its file is now; picks up new rules after the system has
    // updated the file. Returns none if there is no such zone. Any name is safe.
    [[nodiscard]] std::optional<TimeZone> named(const std::string& name);

    // Does the same for the file at a path, inside or outside the folder.
    [[nodiscard]] std::optional<TimeZone> at(const std::filesystem::path& file);

private:
    // Changes whenever the file's content does.
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
