// Threads whose every crash can be reported, a stack overflow too: the way to start one.
#pragma once

#include <functional>
#include <thread>

namespace vantrel::posix {

// `work` has an AlternateSignalStack under it and the crash signals unblocked, whatever the starting thread
// blocks. Throws std::system_error when the system gives no more threads.
[[nodiscard]] std::thread reportedThread(std::function<void()> work);

} // namespace vantrel::posix
