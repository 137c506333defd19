// Lets long background work notice that the program is ending and its result is no longer needed.
#pragma once

#include <atomic>
#include <memory>
#include <utility>

namespace vantrel {

// Checked by the work from time to time. Copies share one source; safe on any thread.
class StopToken {
public:
    // Never requests a stop.
    StopToken() = default;

    [[nodiscard]] bool isStopRequested() const {
        return m_isRequested && m_isRequested->load(std::memory_order_relaxed);
    }

private:
    friend class StopSource;

    explicit StopToken(std::shared_ptr<const std::atomic<bool>> isRequested)
        : m_isRequested(std::move(isRequested)) {}

    std::shared_ptr<const std::atomic<bool>> m_isRequested;
};

// Held by whoever ends the work. Replaces std::stop_source, which some of our C++ libraries lack.
class StopSource {
public:
    [[nodiscard]] StopToken token() const { return StopToken(m_isRequested); }

    void requestStop() { m_isRequested->store(true, std::memory_order_relaxed); }

private:
    std::shared_ptr<std::atomic<bool>> m_isRequested = std::make_shared<std::atomic<bool>>(false);
};

} // namespace vantrel
