#include "Vantrel/platform/x11/X11DisplayServices.h"

#include "Vantrel/platform/x11/MonitorQuery.h"
#include "Vantrel/platform/x11/WorkAreaQuery.h"

#include <utility>

namespace vantrel {

namespace {

// Moves the origin to the bottom left of the primary display and makes y grow upwards.
Rect fromBottomLeft(const Rect& rect, const Rect& primary) {
    return {{rect.minX() - primary.minX(), primary.maxY() - rect.maxY()}, rect.size};
}

} // namespace

X11DisplayServices::X11DisplayServices(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection)) {}

std::vector<ActiveDisplay> X11DisplayServices::activeDisplays() {
    std::vector<ActiveDisplay> result;
    for (const X11Display& display : displays()) {
        result.push_back({.id = display.id,
                          .isBuiltin = display.isBuiltin,
                          .bounds = display.bounds,
                          .uuid = display.uuid});
    }
    return result;
}

std::vector<Screen> X11DisplayServices::screens() {
    std::vector<Screen> result;
    const std::vector<X11Display> all = displays();
    const WorkAreaReading workArea = WorkAreaQuery::read(*m_connection);
    for (const X11Display& display : all) {
        const Rect& primary = all.front().bounds;
        result.push_back({.displayID = display.id,
                          .localizedName = display.name,
                          .frame = fromBottomLeft(display.bounds, primary),
                          .visibleFrame = fromBottomLeft(workArea.visibleFrame(display.bounds), primary)});
    }
    return result;
}

std::vector<EdidHint> X11DisplayServices::edidHints() {
    std::vector<EdidHint> result;
    for (const X11Display& display : displays()) {
        if (display.edidUUID) {
            result.push_back({.productName = display.name, .edidUUID = display.edidUUID});
        }
    }
    return result;
}

void X11DisplayServices::setReconfigurationHandler(std::function<void()> handler) {
    m_watch.reset();
    if (handler) {
        m_watch.emplace(m_connection, std::move(handler));
    }
}

std::vector<X11Display> X11DisplayServices::displays() const {
    const auto monitors = MonitorQuery::read(*m_connection);
    return monitors ? DisplayList::displays(*monitors) : std::vector<X11Display>{};
}

} // namespace vantrel
