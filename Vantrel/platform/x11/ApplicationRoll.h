// Remembers which applications have windows, to detect new ones.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

namespace vantrel {

// A window in the window manager's list.
struct ListedWindow {
    std::uint32_t id = 0;
    RunningApp app;
};

class ApplicationRoll {
public:
    // Returns the regular applications that have windows now and had none before, in list order; the first
    // call returns none. An application stays on the roll while any of its windows exists, listed or not, so
    // a restarted window manager or a program leaving the tray does not count as a launch. `exists` is called
    // for windows that are no longer listed.
    [[nodiscard]] std::vector<RunningApp> look(const std::vector<ListedWindow>& listed,
                                               const std::function<bool(std::uint32_t)>& exists);

private:
    bool m_hasLooked = false;
    std::map<std::uint32_t, RunningApp> m_windows;
};

} // namespace vantrel
