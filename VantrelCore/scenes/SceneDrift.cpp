#include "VantrelCore/scenes/SceneDrift.h"

#include "VantrelCore/model/FrameMatching.h"

namespace vantrel::SceneDrift {

std::size_t movedWindowCount(const Layout& scene, const Layout& current, double tolerance) {
    return FrameMatching::windowsWithoutCounterpart(scene.windows, current.windows, tolerance);
}

bool hasDrifted(const Layout& scene, const Layout& current, double tolerance) {
    return movedWindowCount(scene, current, tolerance) >= driftedWindowCount;
}

} // namespace vantrel::SceneDrift
