#include "Vantrel/platform/posix/ZoneDatabase.h"

#include "Vantrel/platform/posix/FileDescriptor.h"
#include "VantrelCore/model/ZoneFile.h"
#include "VantrelCore/ports/FileSystem.h"

#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace vantrel {

namespace {

// The largest file in the database is under 4 KiB.
constexpr long long largestFile = 1LL << 20;

bool isNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '+' || c == '-' || c == '/';
}

// Keeps names inside the folder and unique per file.
bool isName(const std::string& name) {
    return !name.empty() && name.size() < 100 && std::ranges::all_of(name, isNameCharacter) &&
           name.front() != '/' && name.back() != '/' && !name.contains("//");
}

} // namespace

std::filesystem::path ZoneDatabase::systemFolder() {
    const char* const folder = std::getenv("TZDIR");
    return folder != nullptr && *folder != '\0' ? folder : "/usr/share/zoneinfo";
}

std::optional<TimeZone> ZoneDatabase::named(const std::string& name) {
    return isName(name) ? at(m_folder / name) : std::nullopt;
}

std::optional<ZoneDatabase::FileMark> ZoneDatabase::mark(int descriptor) {
    struct stat status{};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > largestFile) {
        return std::nullopt;
    }
#ifdef __APPLE__
    const timespec modified = status.st_mtimespec;
#else
    const timespec modified = status.st_mtim;
#endif
    return FileMark{static_cast<unsigned long long>(status.st_dev),
                    static_cast<unsigned long long>(status.st_ino), static_cast<long long>(status.st_size),
                    static_cast<long long>(modified.tv_sec), static_cast<long long>(modified.tv_nsec)};
}

std::optional<TimeZone> ZoneDatabase::at(const std::filesystem::path& file) {
    // O_NONBLOCK: if the path is a pipe, do not wait for its other end.
    const auto descriptor = posix::FileDescriptor::open(file.string(), O_RDONLY | O_NONBLOCK);
    const auto now = descriptor.isOpen() ? mark(descriptor.get()) : std::nullopt;
    if (!now) {
        m_known.erase(file);
        return std::nullopt;
    }
    const auto known = m_known.find(file);
    if (known != m_known.end() && known->second.mark == *now) {
        return known->second.zone;
    }
    m_known.erase(file);
    const auto content = descriptor.readToEnd(FileSystem::maxBytes);
    auto rules = content ? ZoneFile::decode(*content) : std::nullopt;
    if (!rules) {
        return std::nullopt;
    }
    return m_known.emplace(file, Known{*now, TimeZone(std::move(*rules))}).first->second.zone;
}

} // namespace vantrel
