// The windows of programs that are not running now, as the desk's layout last held them. A layout is learned
// from what is on screen, so a program that was ended, or not started yet after a login, soon falls out of
// it.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Kept for this run of the program.
class RememberedWindows {
public:
    // The layout as it is stored now.
    void note(const Layout& layout);

    // With the windows of the applications that it holds no more, behind its own.
    [[nodiscard]] Layout completed(Layout layout) const;

private:
    using ByApplication = std::map<std::string, std::vector<WindowRecord>>;

    // By desk and layout.
    std::map<std::pair<std::string, std::string>, ByApplication> m_windows;
};

} // namespace vantrel
