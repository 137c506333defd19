// One running program per data folder: two would overwrite each other's files.
#pragma once

#include "Vantrel/platform/posix/FileDescriptor.h"

#include <chrono>
#include <expected>
#include <filesystem>
#include <string>
#include <system_error>

namespace vantrel {

// A lock of the kernel's on a file in the folder, which therefore ends with the process, however that ends.
// The file stays: one that was removed and made again could be locked twice.
class InstanceLock {
public:
    static constexpr const char* fileName = "vantrel.lock";

    // Who holds it, as the holder wrote it ("process 4711 on desk"); empty when it could not be read.
    using Holder = std::string;

    // Waits for `patience`, because the other program may just be ending. Fails only when another one holds
    // the lock: a program that cannot lock is more use than none, and has a problem().
    [[nodiscard]] static std::expected<InstanceLock, Holder>
    take(const std::filesystem::path& folder, std::chrono::milliseconds patience = std::chrono::seconds(2));

    // Why nothing is locked: the folder cannot be written, so neither can its files, or the file system knows
    // no locks. None when the lock is held.
    [[nodiscard]] const std::error_code& problem() const { return m_problem; }

private:
    InstanceLock(posix::FileDescriptor file, std::error_code problem);

    posix::FileDescriptor m_file;
    std::error_code m_problem;
};

} // namespace vantrel
