// The icon of the status item: two windows, and a sign for what vantrel is doing.
#pragma once

#include "Vantrel/controller/Phase.h"

#include <QIcon>

#include <cstdint>

namespace vantrel::PhaseIcon {

// For a light panel the icon is dark, for a dark one light; a rim of the other tone keeps it legible where
// the panel is not what the desktop's colours promise.
enum class Tone : std::uint8_t { dark, light };

// What the application's colours say.
[[nodiscard]] Tone toneOfDesktop();

[[nodiscard]] QIcon icon(const Phase& phase, Tone tone);

} // namespace vantrel::PhaseIcon
