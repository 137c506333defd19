// Chooses a symbol for a scene by its name.
#pragma once

#include <string_view>

namespace vantrel::SceneIconography {

inline constexpr std::string_view defaultSymbol = "rectangle.3.group";

// The name of a system symbol image. A keyword matches anywhere in the name, ignoring case ("Homework" is
// home, "Gmail" is mail). If several match, the first in this order wins: code, deep, design, research, meet,
// present, write, mail, music, stream, video, game, office, home. So "Home office" is an office and "Video
// meeting" a meeting.
[[nodiscard]] std::string_view symbol(std::string_view sceneName);

} // namespace vantrel::SceneIconography
