#include "VantrelCore/stores/SetAside.h"

#include <fmt/format.h>
#include <set>
#include <string>
#include <tuple>

namespace vantrel::SetAside {

namespace {

std::filesystem::path olderCopy(const std::filesystem::path& file, std::size_t number) {
    return withSuffix(file, fmt::format(".corrupt.{}", number));
}

std::error_code renameIfThere(FileSystem& files, const std::filesystem::path& from,
                              const std::filesystem::path& to) {
    const std::error_code error = files.rename(from, to);
    return error == std::errc::no_such_file_or_directory ? std::error_code() : error;
}

// Frees ".corrupt.1" by moving each copy up by one, up to the first free number.
std::error_code makeRoomForOlder(FileSystem& files, const std::filesystem::path& file,
                                 const std::set<std::filesystem::path>& existing) {
    std::size_t number = 1;
    while (number + 1 < maxCopies && existing.contains(olderCopy(file, number))) {
        ++number;
    }
    for (; number > 1; --number) {
        if (const auto error = renameIfThere(files, olderCopy(file, number - 1), olderCopy(file, number))) {
            return error;
        }
    }
    return {};
}

// Frees the newest copy's name and calls `put` to place the new copy there. If a foreign folder blocks that
// name, the copy gets the next one.
template <typename Put>
std::error_code placeNewest(FileSystem& files, const std::filesystem::path& file, Put put) {
    const auto entries = files.list(file.parent_path());
    if (!entries) {
        return entries.error();
    }
    std::set<std::filesystem::path> existing;
    for (const auto& entry : *entries) {
        existing.insert(entry.file);
    }
    if (!existing.contains(newestCopy(file))) {
        const std::error_code error = put(newestCopy(file));
        if (error != std::errc::is_a_directory) {
            return error;
        }
    }
    if (const auto error = makeRoomForOlder(files, file, existing)) {
        return error;
    }
    if (!existing.contains(newestCopy(file))) {
        return put(olderCopy(file, 1));
    }
    if (const auto error = renameIfThere(files, newestCopy(file), olderCopy(file, 1))) {
        return error;
    }
    return put(newestCopy(file));
}

} // namespace

std::filesystem::path withSuffix(const std::filesystem::path& file, std::string_view suffix) {
    std::filesystem::path result = file;
    result += suffix;
    return result;
}

std::filesystem::path newestCopy(const std::filesystem::path& file) {
    return withSuffix(file, ".corrupt");
}

std::error_code move(FileSystem& files, const std::filesystem::path& file) {
    return placeNewest(files, file,
                       [&](const std::filesystem::path& copy) { return files.rename(file, copy); });
}

std::error_code keep(FileSystem& files, const std::filesystem::path& file, std::string_view content) {
    return placeNewest(files, file, [&](const std::filesystem::path& copy) {
        const std::error_code error = files.writeAtomically(copy, content);
        return isReplaced(error) ? std::error_code() : error;
    });
}

std::error_code putBack(FileSystem& files, const std::filesystem::path& copy,
                        const std::filesystem::path& file) {
    // The copy may have the name that the old file gets.
    const auto meanwhile = withSuffix(file, ".replacing");
    if (const auto error = renameIfThere(files, file, meanwhile)) {
        return error;
    }
    if (const auto error = files.rename(copy, file)) {
        std::ignore = renameIfThere(files, meanwhile, file);
        return error;
    }
    // The copy is in place; if this fails, the old file keeps its temporary name.
    std::ignore = renameIfThere(files, meanwhile, withSuffix(file, ".replaced"));
    return {};
}

std::filesystem::path original(const std::filesystem::path& copy) {
    std::string name = copy.filename().string();
    const auto dropEnd = [&name](std::string_view end) {
        const bool hasEnd = name.size() > end.size() && name.ends_with(end);
        if (hasEnd) {
            name.resize(name.size() - end.size());
        }
        return hasEnd;
    };
    for (std::size_t number = 1; number < maxCopies; ++number) {
        if (dropEnd(fmt::format(".corrupt.{}", number))) {
            return copy.parent_path() / name;
        }
    }
    for (const char* const end : {".corrupt", ".newer", ".expired", ".replaced", ".replacing"}) {
        if (dropEnd(end)) {
            return copy.parent_path() / name;
        }
    }
    return {};
}

} // namespace vantrel::SetAside
