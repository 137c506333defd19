// Measures how far the live desk has drifted from a scene.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <cstddef>

namespace vantrel::SceneDrift {

// One or two displaced windows are normal use, not drift.
inline constexpr std::size_t driftedWindowCount = 3;

// The scene's windows (ghosts included) without a counterpart on the live desk; see FrameMatching.
[[nodiscard]] std::size_t movedWindowCount(const Layout& scene, const Layout& current, double tolerance);

[[nodiscard]] bool hasDrifted(const Layout& scene, const Layout& current, double tolerance);

} // namespace vantrel::SceneDrift
