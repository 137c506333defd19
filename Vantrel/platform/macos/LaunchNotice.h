// Reports when the system has finished launching the program.
#pragma once

#include <functional>
#include <memory>

namespace vantrel {

// Calls `handler` once, on the main thread, after the constructor has returned, even if launching has already
// finished.
class LaunchNotice {
public:
    explicit LaunchNotice(std::function<void()> handler);
    ~LaunchNotice();
    LaunchNotice(const LaunchNotice&) = delete;
    LaunchNotice& operator=(const LaunchNotice&) = delete;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace vantrel
