#include "benchmarks/desk/MeasuredDesk.h"

#include "Vantrel/platform/x11/X11DisplayServices.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/WindowSnapshotter.h"

#include <stdexcept>

namespace vantrel::bench {

namespace {

std::shared_ptr<X11Connection> connect(const std::string& display) {
    auto connection = X11Connection::open(display);
    if (!connection) {
        throw std::runtime_error(connection.error());
    }
    return *connection;
}

std::vector<DisplayInfo> displaysOf(const std::shared_ptr<X11Connection>& connection) {
    X11DisplayServices services(connection);
    return DisplayTopology::currentDisplays(services);
}

} // namespace

MeasuredDesk::MeasuredDesk(const std::string& display)
    : m_connection(connect(display)), m_accessibility(m_connection), m_displays(displaysOf(m_connection)) {}

std::vector<CurrentWindow> MeasuredDesk::capture() {
    return WindowSnapshotter::currentWindows(m_accessibility, m_displays, std::nullopt, {});
}

void MeasuredDesk::learn(std::size_t arrangement) {
    m_layouts.at(arrangement) = WindowSnapshotter::snapshot(m_accessibility, m_displays, m_clock.now());
}

bool MeasuredDesk::restore(std::size_t arrangement, const std::vector<CurrentWindow>& current) {
    const Layout& layout = m_layouts.at(arrangement);
    const RestoreReport report = RestoreEngine::restore(layout, current, {}, m_clock, m_background);
    return report.restoredCount() == layout.windows.size();
}

} // namespace vantrel::bench
