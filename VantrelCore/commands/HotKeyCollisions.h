// Finds the shortcut that already uses a key combination.
#pragma once

#include "VantrelCore/commands/HotKeySurface.h"
#include "VantrelCore/model/HotKeyCombo.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct TakenHotKey {
    HotKeySurface surface;
    HotKeyCombo combo;
    // The name shown in a conflict message.
    std::string label;

    bool operator==(const TakenHotKey&) const = default;
};

namespace HotKeyCollisions {

// The first entry of `taken` with the same key and modifiers that belongs to a surface other than the one
// being recorded.
[[nodiscard]] std::optional<TakenHotKey> conflict(HotKeyCombo combo, const HotKeySurface& excluding,
                                                  const std::vector<TakenHotKey>& taken);

} // namespace HotKeyCollisions

} // namespace vantrel
