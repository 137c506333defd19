#include "VantrelCore/studio/SnapEngine.h"

#include <algorithm>
#include <cmath>

namespace vantrel::SnapEngine {

namespace {

// The extent of a box along one axis.
struct Span {
    double min = 0;
    double length = 0;

    [[nodiscard]] double middle() const { return min + length / 2; }

    [[nodiscard]] double max() const { return min + length; }
};

Span horizontal(const Rect& rect) {
    return {rect.origin.x, rect.size.width};
}

Span vertical(const Rect& rect) {
    return {rect.origin.y, rect.size.height};
}

Rect rectOf(Span x, Span y) {
    return {{x.min, y.min}, {x.length, y.length}};
}

std::vector<double> candidates(const Rect& bounds, const std::vector<Rect>& siblings,
                               Span (*along)(const Rect&)) {
    std::vector<double> lines;
    lines.reserve(3 * (siblings.size() + 1));
    const auto add = [&](const Rect& rect) {
        const Span span = along(rect);
        lines.insert(lines.end(), {span.min, span.middle(), span.max()});
    };
    add(bounds);
    std::ranges::for_each(siblings, add);
    return lines;
}

// Returns the moved span and appends the line that moved it.
Span moved(Span span, const std::vector<double>& lines, double threshold, std::vector<double>& guides) {
    if (const auto line = nearest(span.min, lines, threshold)) {
        guides.push_back(*line);
        return {*line, span.length};
    }
    if (const auto line = nearest(span.middle(), lines, threshold)) {
        guides.push_back(*line);
        return {*line - span.length / 2, span.length};
    }
    if (const auto line = nearest(span.max(), lines, threshold)) {
        guides.push_back(*line);
        return {*line - span.length, span.length};
    }
    return span;
}

enum class Dragged : std::uint8_t { no, yes };

// Returns the resized span and appends the lines that its dragged ends snapped to.
Span resized(Span span, Dragged minimum, Dragged maximum, const std::vector<double>& lines, double threshold,
             std::vector<double>& guides) {
    const auto snapped = [&](double edge, Dragged dragged) {
        const auto line = dragged == Dragged::yes ? nearest(edge, lines, threshold) : std::nullopt;
        if (line) {
            guides.push_back(*line);
        }
        return line;
    };
    const auto newMin = snapped(span.min, minimum);
    const auto newMax = snapped(span.max(), maximum);
    Span result = span;
    // Recompute only the edges that snapped, so that everything else stays bit-identical.
    if (newMin || newMax) {
        result.min = newMin.value_or(span.min);
        result.length = newMax.value_or(span.max()) - result.min;
    }
    if (result.length < minBoxSize) {
        if (minimum == Dragged::yes) {
            result.min = result.max() - minBoxSize;
        }
        result.length = minBoxSize;
    }
    return result;
}

Span clampedInside(Span span, Span bounds) {
    if (!(span.length <= bounds.length)) {
        return {bounds.min, span.length};
    }
    return {std::min(std::max(span.min, bounds.min), bounds.max() - span.length), span.length};
}

} // namespace

SnapResult snapMove(const Rect& rect, const Rect& bounds, const std::vector<Rect>& siblings, double threshold,
                    const std::optional<Rect>& clamp) {
    SnapResult result;
    const Span x =
        moved(horizontal(rect), verticalCandidates(bounds, siblings), threshold, result.verticalGuides);
    const Span y =
        moved(vertical(rect), horizontalCandidates(bounds, siblings), threshold, result.horizontalGuides);
    result.frame = rectOf(x, y);
    if (clamp) {
        result.frame = clampInside(result.frame, *clamp);
    }
    return result;
}

SnapResult snapResize(const Rect& rect, ResizeEdges edges, const Rect& bounds,
                      const std::vector<Rect>& siblings, double threshold) {
    const auto dragged = [&](ResizeEdges edge) { return edges.contains(edge) ? Dragged::yes : Dragged::no; };
    SnapResult result;
    const Span x = resized(horizontal(rect), dragged(ResizeEdges::left), dragged(ResizeEdges::right),
                           verticalCandidates(bounds, siblings), threshold, result.verticalGuides);
    const Span y = resized(vertical(rect), dragged(ResizeEdges::top), dragged(ResizeEdges::bottom),
                           horizontalCandidates(bounds, siblings), threshold, result.horizontalGuides);
    result.frame = rectOf(x, y);
    return result;
}

std::vector<double> verticalCandidates(const Rect& bounds, const std::vector<Rect>& siblings) {
    return candidates(bounds, siblings, horizontal);
}

std::vector<double> horizontalCandidates(const Rect& bounds, const std::vector<Rect>& siblings) {
    return candidates(bounds, siblings, vertical);
}

std::optional<double> nearest(double value, const std::vector<double>& candidates, double threshold) {
    std::optional<double> best;
    double bestDistance = 0;
    // One pass that prefers the smaller line on a tie gives the same result as sorting first. NaN lines never
    // compare as near.
    for (const double line : candidates) {
        const double distance = std::abs(line - value);
        if (distance <= threshold &&
            (!best || distance < bestDistance || (distance == bestDistance && line < *best))) {
            best = line;
            bestDistance = distance;
        }
    }
    return best;
}

Rect clampInside(const Rect& rect, const Rect& bounds) {
    return rectOf(clampedInside(horizontal(rect), horizontal(bounds)),
                  clampedInside(vertical(rect), vertical(bounds)));
}

} // namespace vantrel::SnapEngine
