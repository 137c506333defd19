// Work of another thread that the system wants done on the main thread.
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

// Has `work` run on the main thread and waits for what it gives, for `deadline` at most; after that it does
// not begin any more. None when the main thread does not come to it in time, as at the end of the program.
// Throws what `work` throws.
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
        // Work that is at it just now is waited for.
        const std::scoped_lock lock(call->mutex);
        if (result.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
            call->isGivenUp = true;
            return std::nullopt;
        }
    }
    return result.get();
}

} // namespace vantrel
