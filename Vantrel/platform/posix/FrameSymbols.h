// The words for a return address: module, function, offset. For use in a signal handler.
//
// Of the ways to name a frame, backtrace_symbols_fd alone is documented to allocate nothing and to be safe in
// a signal handler (dladdr is not, backtrace_symbols allocates). It writes to a descriptor and gives whole
// paths, so it writes into a pipe of ours, from which the line is taken without the folders.
#pragma once

#include <array>
#include <string_view>

namespace vantrel::posix {

class FrameSymbols {
public:
    // Opens the pipe, once, outside of any handler. Without it frames have no words.
    void prepare();

    // Without a newline; valid until the next call, empty when there are no words. Not for two threads at a
    // time.
    [[nodiscard]] std::string_view line(void* frame);

private:
    // Neither end ever blocks.
    std::array<int, 2> m_pipe{-1, -1};
    // Longer than any path: a line that is cut still shows where the folders end.
    std::array<char, 8192> m_line{};
};

} // namespace vantrel::posix
