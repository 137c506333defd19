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
    // The desk's layouts as they are stored now. What was remembered of any other layout of it is forgotten.
    void note(const std::string& configID, const std::vector<Layout>& layouts);

    // The layout has another name from now on.
    void rename(const std::string& configID, const std::string& name, const std::string& newName);

    // With the windows of the applications that it holds no more, behind its own.
    [[nodiscard]] Layout completed(Layout layout) const;

private:
    // Desk and layout.
    using Key = std::pair<std::string, std::string>;
    using ByApplication = std::map<std::string, std::vector<WindowRecord>>;

    std::map<Key, ByApplication> m_windows;
};

} // namespace vantrel
