// Describes a return address: module, function, offset. Safe to use in a signal handler.
//
// Only backtrace_symbols_fd is documented not to allocate and to be safe in a signal handler (dladdr is not,
// and backtrace_symbols allocates). It writes full paths to a descriptor, so we have it write to a pipe and
// read the line back without the folders.
#pragma once

#include <array>
#include <string_view>

namespace vantrel::posix {

class FrameSymbols {
public:
    // Opens the pipe. Call once, outside any handler. Without it, lines are empty.
    void prepare();

    // Has no newline, is valid until the next call, and is empty if the frame cannot be described. Not
    // thread-safe.
    [[nodiscard]] std::string_view line(void* frame);

private:
    // Neither end ever blocks.
    std::array<int, 2> m_pipe{-1, -1};
    // Longer than any path, so a truncated line still shows where the folders end.
    std::array<char, 8192> m_line{};
};

} // namespace vantrel::posix
