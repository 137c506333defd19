// Runs work on the main thread for another thread.
#pragma once

#include "VantrelCore/ports/MainQueue.h"

#include <chrono>
#include <exception>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace vantrel {

// Runs `work` on the main thread and waits up to `deadline` for its result; after that, the work no longer
// starts. Returns none if the main thread does not get to it in time, for example while the program exits.
// Rethrows exceptions of `work`.
template <typename Work>
[[nodiscard]] auto callOnMainThread(MainQueue& queue, std::chrono::milliseconds deadline, Work work)
    -> std::optional<decltype(work())> {
    using Result = decltype(work());
    struct Call {
        std::mutex mutex;
        bool isGivenUp = false;
        std::promise<Result> promise;
    };
    const auto call = std::make_shared<Call>();
    auto result = call->promise.get_future();
    queue.post([call, work = std::move(work)] {
        const std::scoped_lock lock(call->mutex);
        if (call->isGivenUp) {
            return;
        }
        try {
            call->promise.set_value(work());
        } catch (...) {
            call->promise.set_exception(std::current_exception());
        }
    });
    if (result.wait_for(deadline) != std::future_status::ready) {
        // Wait for work that is already running.
        const std::scoped_lock lock(call->mutex);
        if (result.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
            call->isGivenUp = true;
            return std::nullopt;
        }
    }
    return result.get();
}

} // namespace vantrel
