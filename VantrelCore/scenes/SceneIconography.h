// A symbol for a scene, chosen by its name.
#pragma once

#include <string_view>

namespace vantrel::SceneIconography {

inline constexpr std::string_view defaultSymbol = "rectangle.3.group";

// The name of a system symbol image. A keyword matches anywhere in the name, without regard to case
// ("Homework" is home, "Gmail" is mail); of several the first in this order decides: code, deep, design,
// research, meet, present, write, mail, music, stream, video, game, office, home. So a "Home office" is an
// office and a "Video meeting" a meeting.
[[nodiscard]] std::string_view symbol(std::string_view sceneName);

} // namespace vantrel::SceneIconography
