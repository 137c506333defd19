#include "Vantrel/platform/posix/FolderMove.h"

#include "Vantrel/platform/posix/InstanceLock.h"
#include "Vantrel/platform/posix/PosixFileSystem.h"

#include <algorithm>
#include <fmt/format.h>
#include <functional>
#include <system_error>

namespace vantrel::FolderMove {

namespace {

namespace fs = std::filesystem;

std::error_code moveFile(const fs::path& from, const fs::path& to) {
    PosixFileSystem files;
    if (const auto error = files.createDirectories(to.parent_path())) {
        return error;
    }
    const auto error = files.rename(from, to);
    if (error != std::errc::cross_device_link) {
        return error;
    }
    const auto content = files.read(from);
    if (!content) {
        return content.error();
    }
    const auto unwritten = files.writeAtomically(to, *content);
    return unwritten && !isReplaced(unwritten) ? unwritten : files.remove(from);
}

// In order of their names, so that the log reads the same every time. Folders that cannot be read are
// skipped.
std::vector<fs::path> filesBelow(const fs::path& folder, bool withSubfolders) {
    std::vector<fs::path> found;
    std::error_code ignored;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, ignored);
    for (const fs::recursive_directory_iterator end; !ignored && entry != end; entry.increment(ignored)) {
        if (!withSubfolders) {
            entry.disable_recursion_pending();
        }
        std::error_code unknown;
        if (!entry->is_directory(unknown) || entry->is_symlink(unknown)) {
            found.push_back(entry->path());
        }
    }
    std::ranges::sort(found);
    return found;
}

std::vector<std::string> moveAll(const std::vector<fs::path>& files, const fs::path& from,
                                 const fs::path& to) {
    std::vector<std::string> moved;
    std::vector<std::string> report;
    for (const fs::path& file : files) {
        const auto name = file.lexically_relative(from);
        std::error_code unknown;
        if (fs::exists(fs::symlink_status(to / name, unknown))) {
            report.push_back(
                fmt::format("files: {} is not used: {} exists too", file.string(), (to / name).string()));
        } else if (const auto error = moveFile(file, to / name)) {
            report.push_back(fmt::format("files: {} could not be moved to {}: {}", file.string(), to.string(),
                                         error.message()));
        } else {
            moved.push_back(name.string());
        }
    }
    if (!moved.empty()) {
        report.insert(report.begin(), fmt::format("files: moved from {} to {}: {}", from.string(),
                                                  to.string(), fmt::join(moved, ", ")));
    }
    return report;
}

void removeEmptyFolders(const fs::path& folder) {
    std::vector<fs::path> folders;
    std::error_code ignored;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, ignored);
    for (const fs::recursive_directory_iterator end; !ignored && entry != end; entry.increment(ignored)) {
        std::error_code unknown;
        if (entry->is_directory(unknown) && !entry->is_symlink(unknown)) {
            folders.push_back(entry->path());
        }
    }
    // Those inside of others come first.
    std::ranges::sort(folders, std::greater());
    folders.push_back(folder);
    for (const fs::path& each : folders) {
        fs::remove(each, ignored);
    }
}

} // namespace

std::vector<std::string> everything(const fs::path& from, const fs::path& to) {
    auto files = filesBelow(from, true);
    const fs::path lock = from / InstanceLock::fileName;
    std::erase(files, lock);
    auto report = moveAll(files, from, to);
    if (std::ranges::none_of(filesBelow(from, true), [&](const fs::path& file) { return file != lock; })) {
        std::error_code ignored;
        fs::remove(lock, ignored);
        removeEmptyFolders(from);
    }
    return report;
}

std::vector<std::string> files(const fs::path& from, const fs::path& to,
                               const std::vector<std::string>& names) {
    auto found = filesBelow(from, false);
    std::erase_if(found, [&](const fs::path& file) {
        const std::string own = file.filename().string();
        return std::ranges::none_of(
            names, [&](const std::string& name) { return own == name || own.starts_with(name + "."); });
    });
    return moveAll(found, from, to);
}

} // namespace vantrel::FolderMove
