// Which applications have windows, kept from one look at the desk to the next, so that a new one is noticed.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace vantrel {

// A window of the window manager's list.
struct ListedWindow {
    std::uint32_t id = 0;
    RunningApp app;
};

class ApplicationRoll {
public:
    // Returns the regular applications that have windows now and had none before, in the order of the list;
    // the first look returns none. An application stays on the roll as long as one of its windows exists,
    // listed or not: a window manager that restarts, or a program that hides itself in the tray, starts
    // nothing. `exists` is asked about windows that the list has no more.
    [[nodiscard]] std::vector<RunningApp> look(const std::vector<ListedWindow>& listed,
                                               const std::function<bool(std::uint32_t)>& exists);

private:
    bool m_hasLooked = false;
    std::map<std::uint32_t, RunningApp> m_windows;
};

} // namespace vantrel
