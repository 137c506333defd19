// Allows one running program per data folder: two would overwrite each other's files.
#pragma once

#include "Vantrel/platform/posix/FileDescriptor.h"

#include <chrono>
#include <expected>
#include <filesystem>
#include <string>
#include <system_error>

namespace vantrel {

// A kernel lock on a file in the folder, so it ends with the process in any case. The file is never removed:
// a recreated file could be locked twice.
class InstanceLock {
public:
    static constexpr const char* fileName = "vantrel.lock";

    // The holder's own description ("process 4711 on desk"); empty if it cannot be read.
    using Holder = std::string;

    // Waits up to `patience`, because the other program may be about to exit. Fails only if another program
    // holds the lock; changes the file's times, which the holder may watch. If locking is impossible,
    // succeeds with a problem(), because running without a lock is better than not running.
    [[nodiscard]] static std::expected<InstanceLock, Holder>
    take(const std::filesystem::path& folder, std::chrono::milliseconds patience = std::chrono::seconds(2));

    // Why nothing is locked: the folder, and so its files, cannot be written, or the file system does not
    // support locks. No error if the lock is held.
    [[nodiscard]] const std::error_code& problem() const { return m_problem; }

private:
    InstanceLock(posix::FileDescriptor file, std::error_code problem);

    posix::FileDescriptor m_file;
    std::error_code m_problem;
};

} // namespace vantrel
