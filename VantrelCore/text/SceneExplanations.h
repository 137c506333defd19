// Explanations of how the interface treats scenes and stashes.
#pragma once
#include "VantrelCore/text/Translation.h"

namespace vantrel::SceneExplanations {

inline constexpr const char* pinnedIsProtected = marked("Pinned scenes are protected from deletion.");
// Shown beside the switch of a scene with ghost slots.
inline constexpr const char* alwaysOpensMissingApps =
    marked("This scene has apps set to open on apply, so missing apps always launch.");
inline constexpr const char* stashRetention = marked("Kept for 7 days");

} // namespace vantrel::SceneExplanations
