// A separate stack for signal handlers, so that stack overflows can be reported: the thread's own stack has
// no room left for the handler.
#pragma once

#include <cstddef>

namespace vantrel::posix {

// Create and destroy it on the thread that it serves; `reportedThread` does this for our threads. Does
// nothing if the thread already has such a stack or there is no memory.
class AlternateSignalStack {
public:
    AlternateSignalStack();
    ~AlternateSignalStack();
    AlternateSignalStack(const AlternateSignalStack&) = delete;
    AlternateSignalStack& operator=(const AlternateSignalStack&) = delete;

private:
    // The whole mapping, including the guard page; null if there is none.
    void* m_memory = nullptr;
    std::size_t m_size = 0;
};

} // namespace vantrel::posix
