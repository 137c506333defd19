#include "Vantrel/platform/posix/FrameWalk.h"

namespace vantrel::posix::FrameWalk {

namespace {

// What arm64 and x86_64 save at a frame pointer.
struct Frame {
    std::uintptr_t next = 0;
    std::uintptr_t returnAddress = 0;
};

} // namespace

std::size_t walk(std::uintptr_t programCounter, std::uintptr_t framePointer, const Stack& stack,
                 std::span<void*> frames) {
    std::size_t count = 0;
    // Registers and the stack hold addresses as integers.
    // NOLINTBEGIN(performance-no-int-to-ptr)
    const auto add = [&](std::uintptr_t address) { frames[count++] = reinterpret_cast<void*>(address); };
    if (!frames.empty()) {
        add(programCounter);
    }
    std::uintptr_t lowest = stack.low;
    while (count < frames.size() && framePointer % alignof(Frame) == 0 && framePointer >= lowest &&
           framePointer < stack.high && stack.high - framePointer >= sizeof(Frame)) {
        const auto* const frame = reinterpret_cast<const Frame*>(framePointer);
        if (frame->returnAddress == 0) {
            break;
        }
        add(frame->returnAddress);
        lowest = framePointer + sizeof(Frame);
        framePointer = frame->next;
    }
    // NOLINTEND(performance-no-int-to-ptr)
    return count;
}

} // namespace vantrel::posix::FrameWalk
