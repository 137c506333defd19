// The status item's icon: two windows, and a badge that shows what vantrel is doing.
#pragma once

#include "Vantrel/controller/Phase.h"

#include <QIcon>

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel::PhaseIcon {

// The icon is dark on a light panel and light on a dark one. A rim of the other tone keeps it legible when
// the panel does not match the desktop's colors.
enum class Tone : std::uint8_t { dark, light };

// The tone that suits the application's palette.
[[nodiscard]] Tone toneOfDesktop();

[[nodiscard]] QIcon icon(const Phase& phase, Tone tone);

// The same with the name that it has in the icon theme, if it is installed there. Hosts of
// StatusNotifierItems prefer a name: they find a drawing for every scale under it.
[[nodiscard]] QIcon namedIcon(const Phase& phase, Tone tone);

// The same for a menu bar that colours its icons: PNG data for one, two and three pixels per point, where
// only the opacity counts. So the badge's shape says what its colour says elsewhere.
[[nodiscard]] std::vector<std::string> masks(const Phase& phase);

} // namespace vantrel::PhaseIcon
