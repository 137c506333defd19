#include "benchmarks/desk/MeasuredDesk.h"

#include "Vantrel/platform/x11/X11DisplayServices.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/VisibleWindows.h"
#include "VantrelCore/windows/WindowPairing.h"

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
    : m_connection(connect(display)), m_desk(std::make_shared<X11Context>(m_connection)),
      m_displays(displaysOf(m_connection)) {}

std::vector<LiveWindow> MeasuredDesk::capture() {
    return VisibleWindows::ordinary(m_desk.capture({}), m_displays);
}

void MeasuredDesk::learn(std::size_t arrangement) {
    m_layouts.at(arrangement).windows = VisibleWindows::records(capture());
}

bool MeasuredDesk::restore(std::size_t arrangement, const std::vector<LiveWindow>& current) {
    const Layout& layout = m_layouts.at(arrangement);
    const RestoreReport report = RestoreEngine::restore(
        layout, current, WindowPairing::pair(layout.windows, {}, current), {}, m_desk, m_permit, m_clock);
    return report.restoredCount() == layout.windows.size();
}

} // namespace vantrel::bench
