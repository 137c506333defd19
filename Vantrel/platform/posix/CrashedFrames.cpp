#include "Vantrel/platform/posix/CrashedFrames.h"

#ifdef __APPLE__
#include "Vantrel/platform/posix/FrameWalk.h"

#include <pthread.h>
#include <sys/ucontext.h>
#else
#include <execinfo.h>
#endif

namespace vantrel::posix {

#ifdef __APPLE__

// macOS's backtrace() ends at the edge of the thread's stack, so on the alternate stack it finds only the
// handler.
std::size_t crashedFrames(void* context, std::span<void*> frames) {
    const auto& state = static_cast<const ucontext_t*>(context)->uc_mcontext->__ss;
    const pthread_t thread = pthread_self();
    const auto high = reinterpret_cast<std::uintptr_t>(pthread_get_stackaddr_np(thread));
    const FrameWalk::Stack stack{.low = high - pthread_get_stacksize_np(thread), .high = high};
#ifdef __arm64__
    return FrameWalk::walk(state.__pc, state.__fp, stack, frames);
#else
    return FrameWalk::walk(state.__rip, state.__rbp, stack, frames);
#endif
}

#else

// glibc's backtrace() walks through the handler into what it interrupted.
std::size_t crashedFrames(void* /*context*/, std::span<void*> frames) {
    const int count = ::backtrace(frames.data(), static_cast<int>(frames.size()));
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

#endif

} // namespace vantrel::posix
