// Port: work off the main thread.
#pragma once

#include "VantrelCore/ports/StopToken.h"

#include <cstddef>
#include <cstdint>
#include <functional>

namespace vantrel {

enum class WorkPriority : std::uint8_t {
    // Nobody waits for it (captures).
    utility,
    // The user waits for it (restores).
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

    // Calls `work(0)` to `work(count - 1)`, each on a worker of its own, so that one that blocks delays no
    // other; returns when all have finished, and throws the first error of any. May be called from any
    // thread.
    virtual void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) = 0;

    // Asks to stop when the program ends, which waits for the work that has begun: work that may take more
    // than a second looks at it now and then. May be called from any thread.
    [[nodiscard]] virtual StopToken stopToken() const = 0;
};

} // namespace vantrel
