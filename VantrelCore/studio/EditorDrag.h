// A drag in the scene editor: where boxes go while the pointer moves, and the lines and zones to draw
// meanwhile. Canvas coordinates are those of a CanvasGeometry; frames of boxes are in screen coordinates.
#pragma once

#include "VantrelCore/studio/CanvasGeometry.h"
#include "VantrelCore/studio/SceneDraft.h"
#include "VantrelCore/studio/SnapEngine.h"
#include "VantrelCore/studio/Zones.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct EditorDrag {
    // Between windows that fill neighbouring zones, in points of the screen.
    static constexpr double zoneGap = 8;
    // How close to a display's edge the pointer must come for a zone, in points of the canvas.
    static constexpr double zoneReach = 14;

    // Where the drag began, on the canvas.
    Point start;
    // The dragged boxes as they were then; the one under the pointer, or whose edge it is, is `held`.
    std::map<SceneDraft::BoxID, Rect> before;
    SceneDraft::BoxID held = 0;
    // The dragged edges of a resize; none while boxes are moved.
    SnapEngine::ResizeEdges edges{};
    // The sizes that the held box's application accepts.
    AppSizeBehavior::Classification limits = AppSizeBehavior::Flexible{};

    struct Scenery {
        const CanvasGeometry& geometry;
        const std::vector<DisplayInfo>& displays;
        // The frames of the other boxes, on the screen.
        const std::vector<Rect>& others;
    };

    struct Guide {
        bool isVertical = false;
        // x of a vertical guide, y of a horizontal one, on the canvas.
        double position = 0;

        bool operator==(const Guide&) const = default;
    };

    struct Step {
        std::map<SceneDraft::BoxID, Rect> frames;
        std::vector<Guide> guides{};
        // The zone that the held box fills when it is dropped now, and its frame.
        std::optional<Zone> zone{};
        Rect zoneFrame{};
        // The size that the application does not accept, if the pointer asks for one.
        std::optional<Size> refused{};

        bool operator==(const Step&) const = default;

        // What the drop does.
        [[nodiscard]] std::map<SceneDraft::BoxID, Rect> dropped() const;
    };

    // With the pointer at `pointer` on the canvas. `isFree` turns snapping and zones off.
    [[nodiscard]] Step at(Point pointer, const Scenery& scenery, bool isFree) const;

private:
    [[nodiscard]] Step moved(Point pointer, const Scenery& scenery, bool isFree) const;
    [[nodiscard]] Step resized(Point pointer, const Scenery& scenery, bool isFree) const;
};

} // namespace vantrel
