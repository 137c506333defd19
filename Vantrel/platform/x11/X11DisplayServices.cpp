#include "Vantrel/platform/x11/X11DisplayServices.h"

#include <utility>

namespace vantrel {

X11DisplayServices::X11DisplayServices(std::shared_ptr<X11Connection> connection)
    : m_connection(std::move(connection)) {}

std::vector<DisplayInfo> X11DisplayServices::displays() {
    return m_watch ? m_watch->displays() : ReconfigurationWatch::read(*m_connection);
}

void X11DisplayServices::setReconfigurationHandler(std::function<void()> handler) {
    m_watch.reset();
    if (handler) {
        m_watch.emplace(m_connection, std::move(handler));
    }
}

} // namespace vantrel
