// Port: work off the main thread.
#pragma once

#include "VantrelCore/ports/StopToken.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace vantrel {

enum class WorkPriority : std::uint8_t {
    // Writes files, on a thread of its own, so that a slow disk holds up nothing else.
    writing,
    // Nobody is waiting for the result (captures).
    utility,
    // The user is waiting for the result (restores).
    userInitiated,
};

class Background {
public:
    Background() = default;
    Background(const Background&) = delete;
    Background& operator=(const Background&) = delete;
    virtual ~Background() = default;

    // Runs `work` on another thread. The work posts its result to the MainQueue itself.
    virtual void run(WorkPriority priority, std::function<void()> work) = 0;

    // Calls `work(0)` to `work(count - 1)`, each on its own worker, so that a blocked call delays no other.
    // Returns when all have finished, and throws the first error that any call threw. May be called from any
    // thread.
    virtual void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) = 0;

    // Requests a stop when the program ends. Shutdown waits for work that has begun, so work that may take
    // more than a second checks this token regularly. May be called from any thread.
    [[nodiscard]] virtual StopToken stopToken() const = 0;
};

} // namespace vantrel
