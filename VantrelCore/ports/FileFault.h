// File errors beyond those of the system.
#pragma once

#include <system_error>

namespace vantrel {

enum class FileFault {
    // The file has its new content, but the flush to disk failed: a crash of the machine may lose it.
    notFlushed = 1
};

[[nodiscard]] std::error_code make_error_code(FileFault fault);

// Whether a write that ended with `error` left the file with its new content.
[[nodiscard]] inline bool isReplaced(const std::error_code& error) {
    return !error || error == make_error_code(FileFault::notFlushed);
}

} // namespace vantrel

template <>
struct std::is_error_code_enum<vantrel::FileFault> : std::true_type {};
