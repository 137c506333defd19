#include "Vantrel/controller/DeskCapture.h"

#include "VantrelCore/windows/VisibleWindows.h"

namespace vantrel::DeskCapture {

std::vector<LiveWindow> windows(Desk& desk, const Scope& scope, Reach reach) {
    return windows(desk.capture(scope.filter), scope, reach);
}

std::vector<LiveWindow> windows(const DeskSnapshot& snapshot, const Scope& scope, Reach reach) {
    return reach == Reach::every ? VisibleWindows::every(snapshot, scope.displays)
                                 : VisibleWindows::ordinary(snapshot, scope.displays);
}

Picture picture(Desk& desk, Clock& clock, const Scope& scope) {
    Picture result{.windows = VisibleWindows::remembered(desk.capture(scope.filter), scope.displays),
                   .takenAt = {}};
    result.takenAt = clock.now();
    return result;
}

} // namespace vantrel::DeskCapture
