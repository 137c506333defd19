// Where a ghost slot stands: a place that a scene keeps free for an application that is not running.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/model/WindowRecord.h"
#include "VantrelCore/windows/CascadeLayout.h"

#include <optional>
#include <vector>

namespace vantrel::GhostPlacement {

// The display with the largest usable area, the first of equal ones; none without displays.
[[nodiscard]] std::optional<DisplayInfo> largestDisplay(const std::vector<DisplayInfo>& displays);

// The frame of a new slot: in the middle of the display's usable frame, or as many cascade steps right of and
// below it as it takes to stand where the fewest of the `existing` frames stand.
[[nodiscard]] Rect defaultFrame(const DisplayInfo& display, const std::vector<Rect>& existing,
                                double cascadeStep = CascadeLayout::defaultStep);

// The slot as it stands on the displays now connected. Where its display stands as it did when the scene was
// saved, so does the slot. On a display that has moved or changed its size, and on the largest display in
// place of one that is away, it keeps its relative place and size, inside the usable frame. A slot whose
// display the saved layout does not know keeps its frame as far as that fits. Without displays it stays as it
// is.
[[nodiscard]] WindowRecord onConnectedDisplays(const WindowRecord& slot,
                                               const std::vector<DisplayInfo>& savedDisplays,
                                               const std::vector<DisplayInfo>& displays);

} // namespace vantrel::GhostPlacement
