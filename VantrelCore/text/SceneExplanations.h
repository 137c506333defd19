// Explanations of how the interface treats scenes and stashes.
#pragma once

#include <string_view>

namespace vantrel::SceneExplanations {

inline constexpr std::string_view pinnedIsProtected = "Pinned scenes are protected from deletion.";
// Shown beside the switch of a scene with ghost slots.
inline constexpr std::string_view alwaysOpensMissingApps =
    "This scene has apps set to open on apply, so missing apps always launch.";
inline constexpr std::string_view stashRetention = "Kept for 7 days";

} // namespace vantrel::SceneExplanations
