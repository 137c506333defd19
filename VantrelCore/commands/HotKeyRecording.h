// The texts of the rows in which a shortcut is recorded, and of the commands in a conflict message.
#pragma once

#include "VantrelCore/commands/HotKeyCollisions.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vantrel::HotKeyRecording {

enum class Place : std::uint8_t { settings, menuPanelScene };

inline constexpr std::string_view resetTitle = "Reset to default";

// What the row shows while it waits for keys; it says what Escape does there.
[[nodiscard]] std::string_view prompt(const HotKeySurface& surface, Place place);

// What the row shows when the recorded combination is refused.
[[nodiscard]] std::string conflictMessage(const TakenHotKey& other);

// The name of a fixed command in `TakenHotKey::label`; empty for a scene, which goes by its own name.
[[nodiscard]] std::string_view commandLabel(HotKeySurface::Kind kind);

} // namespace vantrel::HotKeyRecording
