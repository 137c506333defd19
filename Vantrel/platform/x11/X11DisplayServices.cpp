#include "Vantrel/platform/x11/X11DisplayServices.h"

#include "Vantrel/platform/x11/MonitorQuery.h"
#include "Vantrel/platform/x11/WorkAreaQuery.h"

#include <utility>

namespace vantrel {

X11DisplayServices::X11DisplayServices(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection)) {}

std::vector<DisplayInfo> X11DisplayServices::displays() {
    const auto monitors = MonitorQuery::read(*m_connection);
    if (!monitors || monitors->empty()) {
        return {};
    }
    std::vector<DisplayInfo> displays = DisplayList::displays(*monitors);
    const WorkAreaReading workArea = WorkAreaQuery::read(*m_connection);
    for (DisplayInfo& display : displays) {
        display.visibleFrame = workArea.visibleFrame(display.frame);
    }
    return displays;
}

void X11DisplayServices::setReconfigurationHandler(std::function<void()> handler) {
    m_watch.reset();
    if (handler) {
        m_watch.emplace(m_connection, std::move(handler));
    }
}

} // namespace vantrel
