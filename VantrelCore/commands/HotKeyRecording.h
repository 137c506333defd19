// Recording a shortcut: what the row shows while it waits, and the outcome of the pressed keys.
#pragma once

#include "VantrelCore/commands/HotKeyCollisions.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantrel::HotKeyRecording {

enum class Place : std::uint8_t { settings, menuPanelScene };

inline constexpr std::string_view resetTitle = "Reset to default";

// What the row shows while it waits for keys, including what Escape does.
[[nodiscard]] std::string_view prompt(const HotKeySurface& surface, Place place);

// What the row shows when the recorded combination is refused.
[[nodiscard]] std::string conflictMessage(const TakenHotKey& other);

// What the recorder must do.
struct Store {
    // None: clear the shortcut, or reset it to its default if it has one.
    std::optional<HotKeyCombo> combo;

    bool operator==(const Store&) const = default;
};
// Changes nothing.
struct Cancel {
    bool operator==(const Cancel&) const = default;
};
// Stores nothing; the row shows the message.
struct Refuse {
    std::string message;

    bool operator==(const Refuse&) const = default;
};
using Outcome = std::variant<Store, Cancel, Refuse>;

// The outcome of `pressed` while the shortcut of `surface` is recorded. `taken` lists all combinations in
// use.
[[nodiscard]] Outcome outcome(HotKeyCombo pressed, const HotKeySurface& surface, Place place,
                              const std::vector<TakenHotKey>& taken);

// The name of a fixed command in `TakenHotKey::label`; empty for a scene, which uses its own name.
[[nodiscard]] std::string_view commandLabel(HotKeySurface::Kind kind);

} // namespace vantrel::HotKeyRecording
