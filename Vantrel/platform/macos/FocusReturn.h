// Brings the program to the front when it shows a window, and gives the focus back after the last one.
#pragma once

#include <memory>

namespace vantrel {

// A menu-bar program's windows open behind those of the active application, and closing them leaves nothing
// active. Used on the main thread.
class FocusReturn {
public:
    FocusReturn();
    ~FocusReturn();
    FocusReturn(const FocusReturn&) = delete;
    FocusReturn& operator=(const FocusReturn&) = delete;

    void windowShown();

    // The application that was active before gets the focus, unless the user has chosen another one.
    void lastWindowClosed();

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace vantrel
