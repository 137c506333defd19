#include "VantrelCore/commands/HotKeyCollisions.h"

#include <algorithm>

namespace vantrel::HotKeyCollisions {

std::optional<TakenHotKey> conflict(HotKeyCombo combo, const HotKeySurface& excluding,
                                    const std::vector<TakenHotKey>& taken) {
    const auto found = std::ranges::find_if(
        taken, [&](const TakenHotKey& entry) { return entry.combo == combo && entry.surface != excluding; });
    return found == taken.end() ? std::nullopt : std::optional{*found};
}

} // namespace vantrel::HotKeyCollisions
