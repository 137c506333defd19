// A stack for signal handlers beside that of the thread, so that a crash by stack overflow can be reported,
// too: the thread's own stack has no room left for the handler.
#pragma once

#include <cstddef>

namespace vantrel::posix {

// Made and destroyed on the thread that it serves; `reportedThread` gives every thread of ours one. Does
// nothing on a thread that has such a stack already, or when there is no memory.
class AlternateSignalStack {
public:
    AlternateSignalStack();
    ~AlternateSignalStack();
    AlternateSignalStack(const AlternateSignalStack&) = delete;
    AlternateSignalStack& operator=(const AlternateSignalStack&) = delete;

private:
    // The whole mapping, of which the first page is a wall; null when there is none.
    void* m_memory = nullptr;
    std::size_t m_size = 0;
};

} // namespace vantrel::posix
