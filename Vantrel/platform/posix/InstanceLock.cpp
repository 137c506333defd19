#include "Vantrel/platform/posix/InstanceLock.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace vantrel {

namespace {

using posix::FileDescriptor;
using posix::lastError;

constexpr std::chrono::milliseconds pause(50);
constexpr std::size_t longestHolder = 100;

std::error_code lockWithin(const FileDescriptor& file, std::chrono::milliseconds patience) {
    for (auto waited = pause.zero();; waited += pause) {
        if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
            return {};
        }
        const auto error = lastError();
        const bool isTemporary = error == std::errc::operation_would_block || error == std::errc::interrupted;
        if (!isTemporary || waited >= patience) {
            return error;
        }
        std::this_thread::sleep_for(pause);
    }
}

// Anything but plain text was not written by us.
InstanceLock::Holder holderIn(const FileDescriptor& file) {
    std::array<char, longestHolder> buffer{};
    const auto count = ::pread(file.get(), buffer.data(), buffer.size(), 0);
    const std::string_view line(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    const auto text = line.substr(0, line.find('\n'));
    const bool isPlain = std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
    return isPlain ? InstanceLock::Holder(text) : InstanceLock::Holder();
}

// Informational only; the lock itself does not depend on the content.
void writeHolder(const FileDescriptor& file) {
    std::array<char, 64> host{};
    ::gethostname(host.data(), host.size() - 1);
    const auto text = "process " + std::to_string(::getpid()) + " on " + host.data() + "\n";
    if (::ftruncate(file.get(), 0) == 0) {
        [[maybe_unused]] const auto ignored = ::pwrite(file.get(), text.data(), text.size(), 0);
    }
}

} // namespace

std::expected<InstanceLock, InstanceLock::Holder> InstanceLock::take(const std::filesystem::path& folder,
                                                                     std::chrono::milliseconds patience) {
    const auto path = (folder / fileName).string();
    constexpr unsigned ownerOnly = 0600;
    auto file = FileDescriptor::open(path, O_RDWR | O_CREAT | O_NONBLOCK, ownerOnly);
    if (!file.isOpen()) {
        const auto problem = lastError();
        // An existing file can be locked even if it cannot be written.
        file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
        if (!file.isOpen()) {
            return InstanceLock({}, problem);
        }
    }
    const auto error = lockWithin(file, patience);
    if (error == std::errc::operation_would_block) {
        // Only the time of the last change: the content is the holder's.
        ::futimens(file.get(), nullptr);
        return std::unexpected(holderIn(file));
    }
    if (error) {
        return InstanceLock({}, error);
    }
    writeHolder(file);
    return InstanceLock(std::move(file), {});
}

InstanceLock::InstanceLock(FileDescriptor file, std::error_code problem)
    : m_file(std::move(file)), m_problem(problem) {}

} // namespace vantrel
