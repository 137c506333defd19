// Tells long background work that nobody needs its result any longer: the program is ending.
#pragma once

#include <atomic>
#include <memory>
#include <utility>

namespace vantrel {

// What the work looks at now and then. Copies belong to the same source; safe on any thread.
class StopToken {
public:
    // Never asks to stop.
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

// What whoever ends the work keeps. The standard's std::stop_source is not in every C++ library of ours.
class StopSource {
public:
    [[nodiscard]] StopToken token() const { return StopToken(m_isRequested); }

    void requestStop() { m_isRequested->store(true, std::memory_order_relaxed); }

private:
    std::shared_ptr<std::atomic<bool>> m_isRequested = std::make_shared<std::atomic<bool>>(false);
};

} // namespace vantrel
