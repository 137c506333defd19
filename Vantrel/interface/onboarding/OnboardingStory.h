// The story that the introduction's first page tells, as a film: a display goes, its windows pile up on the
// other one, it returns, and they go home.
#pragma once

#include "Vantrel/interface/desk/DeskPicture.h"

#include <optional>

namespace vantrel::OnboardingStory {

// The film as one picture, for those who do not want motion: the display has come back, and the windows are
// about to go home.
[[nodiscard]] DeskPicture still();

// The film at this time, in seconds; it repeats.
[[nodiscard]] DeskPicture at(double seconds);

// In seconds.
inline constexpr double length = 8.4;

// How long nothing changes from this time on; zero while something moves.
[[nodiscard]] double rest(double seconds);

} // namespace vantrel::OnboardingStory
