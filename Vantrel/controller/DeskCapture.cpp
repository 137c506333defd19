#include "Vantrel/controller/DeskCapture.h"

#include "VantrelCore/windows/VisibleWindows.h"

namespace vantrel::DeskCapture {

std::vector<LiveWindow> windows(Desk& desk, const Scope& scope) {
    return VisibleWindows::ordinary(desk.capture(scope.filter), scope.displays);
}

Picture picture(Desk& desk, Clock& clock, const Scope& scope) {
    Picture result{.windows = VisibleWindows::records(windows(desk, scope)), .takenAt = {}};
    result.takenAt = clock.now();
    return result;
}

} // namespace vantrel::DeskCapture
