#include "Vantrel/commands/DesksMessage.h"

#include <algorithm>

namespace vantrel {

const Layout* DeskMessage::shownLayout() const {
    const auto active = std::ranges::find(layouts, activeLayoutName, &Layout::layoutName);
    if (active != layouts.end()) {
        return &*active;
    }
    return layouts.empty() ? nullptr : &layouts.front();
}

} // namespace vantrel
