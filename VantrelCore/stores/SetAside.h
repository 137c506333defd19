// Sets unusable files aside, in the same folder with ".corrupt" appended. The newest copy has that name;
// older ones are numbered, ".corrupt.1" being the next newest.
#pragma once

#include "VantrelCore/ports/FileSystem.h"

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace vantrel::SetAside {

// Including the newest; setting another file aside drops the oldest.
inline constexpr std::size_t maxCopies = 5;

[[nodiscard]] std::filesystem::path withSuffix(const std::filesystem::path& file, std::string_view suffix);

// The newest copy's name.
[[nodiscard]] std::filesystem::path newestCopy(const std::filesystem::path& file);

// Moves the file aside. On error nothing is lost and the file keeps its name; no_such_file_or_directory means
// that there was no file.
[[nodiscard]] std::error_code move(FileSystem& files, const std::filesystem::path& file);

// Writes `content` as the newest copy; the file itself stays.
[[nodiscard]] std::error_code keep(FileSystem& files, const std::filesystem::path& file,
                                   std::string_view content);

// Puts a copy in the file's place. The old file is kept with ".replaced" appended, replacing an older one. On
// error nothing changes, except that a second disk failure may leave the old file as ".replacing".
[[nodiscard]] std::error_code putBack(FileSystem& files, const std::filesystem::path& copy,
                                      const std::filesystem::path& file);

// The file that a copy belongs to; empty if the name is not that of a copy.
[[nodiscard]] std::filesystem::path original(const std::filesystem::path& copy);

} // namespace vantrel::SetAside
