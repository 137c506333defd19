// Starts threads whose crashes can be reported, including stack overflows.
#pragma once

#include <functional>
#include <thread>

namespace vantrel::posix {

// Runs `work` with an AlternateSignalStack and with the crash signals unblocked, whatever the starting thread
// blocks. Throws std::system_error if no thread can be created.
[[nodiscard]] std::thread reportedThread(std::function<void()> work);

} // namespace vantrel::posix
