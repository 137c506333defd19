// The frames of the code that a signal interrupted.
#pragma once

#include <cstddef>
#include <span>

namespace vantrel::posix {

// `context` is a handler's third argument. Returns how many frames were written. Safe in a signal handler,
// whatever stack it runs on.
[[nodiscard]] std::size_t crashedFrames(void* context, std::span<void*> frames);

} // namespace vantrel::posix
