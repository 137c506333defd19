// Reports when the user reopens the running program: in the Finder, in the Dock, or by starting it again.
#pragma once

#include <functional>
#include <memory>

namespace vantrel {

class ReopenNotice {
public:
    // Calls `handler` on the main thread. Create it when launching has finished: until then AppKit would
    // replace it.
    explicit ReopenNotice(std::function<void()> handler);
    ~ReopenNotice();
    ReopenNotice(const ReopenNotice&) = delete;
    ReopenNotice& operator=(const ReopenNotice&) = delete;

    // Reports it to the instance that is running already.
    static void send();

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace vantrel
