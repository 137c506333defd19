// The status item's icon: two windows, and a badge that shows what vantrel is doing.
#pragma once

#include "Vantrel/controller/Phase.h"

#include <QIcon>

#include <cstdint>

namespace vantrel::PhaseIcon {

// The icon is dark on a light panel and light on a dark one. A rim of the other tone keeps it legible when
// the panel does not match the desktop's colors.
enum class Tone : std::uint8_t { dark, light };

// The tone that suits the application's palette.
[[nodiscard]] Tone toneOfDesktop();

[[nodiscard]] QIcon icon(const Phase& phase, Tone tone);

} // namespace vantrel::PhaseIcon
