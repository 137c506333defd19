// Places ghost slots: frames that a scene reserves for applications that are not running.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/model/WindowRecord.h"
#include "VantrelCore/windows/CascadeLayout.h"

#include <optional>
#include <vector>

namespace vantrel::GhostPlacement {

// The display with the largest usable area, the first of equals; none without displays.
[[nodiscard]] std::optional<DisplayInfo> largestDisplay(const std::vector<DisplayInfo>& displays);

// The frame of a new slot: centred in the display's usable frame, or shifted right and down by as many
// cascade steps as needed to reach the spot where the fewest `existing` frames start.
[[nodiscard]] Rect defaultFrame(const DisplayInfo& display, const std::vector<Rect>& existing,
                                double cascadeStep = CascadeLayout::defaultStep);

// The slot on the connected displays. If its display has the same frame as when the scene was saved, the slot
// is unchanged. If the display has moved or been resized, or is missing and the largest one stands in for it,
// the slot keeps its relative place and size, inside the usable frame. If the saved layout does not know the
// slot's display, the slot keeps its frame, clamped. Without displays it is unchanged.
[[nodiscard]] WindowRecord onConnectedDisplays(const WindowRecord& slot,
                                               const std::vector<DisplayInfo>& savedDisplays,
                                               const std::vector<DisplayInfo>& displays);

} // namespace vantrel::GhostPlacement
