// The windows of programs that are not running now, as the desk's layout last held them. Layouts are learned
// from what is on screen, so a program that has quit, or has not started yet after a login, soon drops out of
// them.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Kept in memory only, for this run of the program.
class RememberedWindows {
public:
    // `layouts` are the desk's stored layouts. Forgets the windows of any other layout of this desk.
    void note(const std::string& configID, const std::vector<Layout>& layouts);

    // Moves the remembered windows to the layout's new name.
    void rename(const std::string& configID, const std::string& name, const std::string& newName);

    // Appends the remembered windows of applications that `layout` no longer contains.
    [[nodiscard]] Layout completed(Layout layout) const;

private:
    // Desk and layout.
    using Key = std::pair<std::string, std::string>;
    using ByApplication = std::map<std::string, std::vector<WindowRecord>>;

    std::map<Key, ByApplication> m_windows;
};

} // namespace vantrel
