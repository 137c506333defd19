// Maps the displays of a desk to a canvas on which they are drawn: one scale for all, centred, in their real
// arrangement and proportions, with a small gap between neighbours and room for labels.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace vantrel {

class CanvasGeometry {
public:
    // All lengths in points of the canvas.
    struct Options {
        // Between displays that lie beside or below each other.
        double gap = 10;
        double margin = 2;
        // Below each display, for its label and the foot of a built-in display.
        double labelHeight = 24;
    };

    struct Region {
        // On the screen.
        Rect screen{};
        Rect usableScreen{};
        // On the canvas.
        Rect frame{};
        Rect usable{};
        // Another display follows so closely below that the label has to stand inside the upper edge.
        bool isLabelInside = false;
    };

    // A desk without displays, on which everything maps to itself.
    CanvasGeometry() = default;
    CanvasGeometry(const std::vector<DisplayInfo>& displays, Size canvas, const Options& options);
    CanvasGeometry(const std::vector<DisplayInfo>& displays, Size canvas)
        : CanvasGeometry(displays, canvas, Options{}) {}

    // Canvas points per point of the screen.
    [[nodiscard]] double scale() const { return m_scale; }
    // One per display, in their order.
    [[nodiscard]] const std::vector<Region>& regions() const { return m_regions; }
    // The displays with their labels.
    [[nodiscard]] const Rect& bounds() const { return m_bounds; }

    // The region that contains the point, or the nearest one; none only without displays.
    [[nodiscard]] std::optional<std::size_t> regionAtScreen(Point point) const;
    [[nodiscard]] std::optional<std::size_t> regionAtCanvas(Point point) const;

    // A point follows the display that contains it, or the nearest one; a rectangle follows its centre. The
    // two directions are inverse for whatever lies on a display.
    [[nodiscard]] Point toCanvas(Point point) const;
    [[nodiscard]] Size toCanvas(Size size) const;
    [[nodiscard]] Rect toCanvas(const Rect& rect) const;
    [[nodiscard]] Point toScreen(Point point) const;
    [[nodiscard]] Size toScreen(Size size) const;
    [[nodiscard]] Rect toScreen(const Rect& rect) const;

private:
    [[nodiscard]] Point toCanvas(Point point, std::size_t region) const;
    [[nodiscard]] Point toScreen(Point point, std::size_t region) const;

    double m_scale = 1;
    std::vector<Region> m_regions;
    Rect m_bounds;
};

} // namespace vantrel
