// Why the interface treats a scene or a stash as it does.
#pragma once

#include <string_view>

namespace vantrel::SceneExplanations {

inline constexpr std::string_view pinnedIsProtected = "Pinned scenes are protected from deletion.";
// Beside the switch of a scene that keeps places free for applications.
inline constexpr std::string_view alwaysOpensMissingApps =
    "This scene has apps set to open on apply, so missing apps always launch.";
inline constexpr std::string_view stashRetention = "Kept for 7 days";

} // namespace vantrel::SceneExplanations
