// Walks a thread's stack along its frame pointers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vantrel::posix::FrameWalk {

// The addresses of a thread's stack; `high` is one past the last.
struct Stack {
    std::uintptr_t low = 0;
    std::uintptr_t high = 0;
};

// Writes the program counter and then the return addresses, and returns how many were written. Ends at a
// frame that is not above the one before, not aligned, or outside the stack, as those of functions without
// frame pointers are. Safe in a signal handler.
[[nodiscard]] std::size_t walk(std::uintptr_t programCounter, std::uintptr_t framePointer, const Stack& stack,
                               std::span<void*> frames);

} // namespace vantrel::posix::FrameWalk
