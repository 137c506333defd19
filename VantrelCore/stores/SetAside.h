// Where files go that cannot be used: beside themselves, under the same name with ".corrupt" appended. The
// newest copy has that name; older ones are numbered, ".corrupt.1" being the next newest.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace vantrel::SetAside {

// Counting the newest; setting another aside drops the oldest.
inline constexpr std::size_t maxCopies = 5;

[[nodiscard]] std::filesystem::path withSuffix(const std::filesystem::path& file, std::string_view suffix);

// The newest copy's name.
[[nodiscard]] std::filesystem::path newestCopy(const std::filesystem::path& file);

// Moves the file aside. After an error everything is still there, the file under its own name; with
// no_such_file_or_directory there was none.
[[nodiscard]] std::error_code move(FileSystem& files, const std::filesystem::path& file);

// Keeps `content` as the newest copy of a file that stays.
[[nodiscard]] std::error_code keep(FileSystem& files, const std::filesystem::path& file,
                                   std::string_view content);

// Puts a copy in the file's place. What was there is kept with ".replaced" appended, replacing an older one.
// After an error
// everything is as it was, but for that name, under which the file may be left if the disk fails twice.
[[nodiscard]] std::error_code putBack(FileSystem& files, const std::filesystem::path& copy,
                                      const std::filesystem::path& file);

// The file that a copy was made of; empty for the name of no copy.
[[nodiscard]] std::filesystem::path original(const std::filesystem::path& copy);

} // namespace vantrel::SetAside
