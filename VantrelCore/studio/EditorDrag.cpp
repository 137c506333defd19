#include "VantrelCore/studio/EditorDrag.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/studio/Rehoming.h"
#include "VantrelCore/studio/SizeLimit.h"

#include <algorithm>

namespace vantrel {

namespace {

Rect united(const Rect& a, const Rect& b) {
    const Point origin{std::min(a.minX(), b.minX()), std::min(a.minY(), b.minY())};
    return {origin, {std::max(a.maxX(), b.maxX()) - origin.x, std::max(a.maxY(), b.maxY()) - origin.y}};
}

std::vector<Rect> siblingsOn(std::size_t region, const EditorDrag::Scenery& scenery) {
    std::vector<Rect> siblings;
    for (const Rect& other : scenery.others) {
        if (scenery.geometry.regionAtScreen(other.center()) == region) {
            siblings.push_back(scenery.geometry.toCanvas(other));
        }
    }
    return siblings;
}

std::vector<EditorDrag::Guide> guidesOf(const SnapEngine::SnapResult& snap) {
    std::vector<EditorDrag::Guide> guides;
    for (const double x : snap.verticalGuides) {
        guides.push_back({true, x});
    }
    for (const double y : snap.horizontalGuides) {
        guides.push_back({false, y});
    }
    return guides;
}

} // namespace

std::map<SceneDraft::BoxID, Rect> EditorDrag::Step::dropped() const {
    if (!zone) {
        return frames;
    }
    auto result = frames;
    // Only a single box fills a zone.
    result.begin()->second = zoneFrame;
    return result;
}

EditorDrag::Step EditorDrag::at(Point pointer, const Scenery& scenery, bool isFree) const {
    if (before.empty() || scenery.displays.empty()) {
        return {before};
    }
    return edges.rawValue == 0 ? moved(pointer, scenery, isFree) : resized(pointer, scenery, isFree);
}

EditorDrag::Step EditorDrag::moved(Point pointer, const Scenery& scenery, bool isFree) const {
    const CanvasGeometry& geometry = scenery.geometry;
    Rect all = geometry.toCanvas(before.at(held));
    for (const auto& [id, frame] : before) {
        all = united(all, geometry.toCanvas(frame));
    }
    Rect wanted = all;
    wanted.origin.x += pointer.x - start.x;
    wanted.origin.y += pointer.y - start.y;
    Step step;
    const std::size_t region = *geometry.regionAtCanvas(pointer);
    const auto& place = geometry.regions()[region];
    if (!isFree) {
        const auto snap = SnapEngine::snapMove(wanted, place.usable, siblingsOn(region, scenery),
                                               SnapEngine::defaultThreshold);
        wanted = snap.frame;
        step.guides = guidesOf(snap);
        if (before.size() == 1) {
            step.zone = Zones::at(pointer, place.usable, zoneReach);
            if (step.zone) {
                step.zoneFrame = Zones::frame(*step.zone, place.usableScreen, zoneGap);
                if (SizeLimit::accepted(limits, step.zoneFrame.size) != step.zoneFrame.size) {
                    step.refused = step.zoneFrame.size;
                }
            }
        }
    }
    const Point by{(wanted.minX() - all.minX()) / geometry.scale(),
                   (wanted.minY() - all.minY()) / geometry.scale()};
    for (const auto& [id, frame] : before) {
        // On the canvas, displays have gaps between them, so each box finds its own way to the screen.
        Rect box = geometry.toCanvas(frame);
        box.origin.x += by.x * geometry.scale();
        box.origin.y += by.y * geometry.scale();
        Rect onScreen = geometry.toScreen(box);
        onScreen.size = frame.size;
        step.frames[id] = Rehoming::placed(onScreen, scenery.displays);
    }
    return step;
}

EditorDrag::Step EditorDrag::resized(Point pointer, const Scenery& scenery, bool isFree) const {
    using Edges = SnapEngine::ResizeEdges;
    const CanvasGeometry& geometry = scenery.geometry;
    const Rect frame = before.at(held);
    const std::size_t region = *geometry.regionAtScreen(frame.center());
    const auto& place = geometry.regions()[region];
    Rect box = geometry.toCanvas(frame);
    const double across = pointer.x - start.x;
    const double down = pointer.y - start.y;
    if (edges.contains(Edges::left)) {
        box.origin.x += across;
        box.size.width -= across;
    } else if (edges.contains(Edges::right)) {
        box.size.width += across;
    }
    if (edges.contains(Edges::top)) {
        box.origin.y += down;
        box.size.height -= down;
    } else if (edges.contains(Edges::bottom)) {
        box.size.height += down;
    }
    Step step;
    const auto snap = SnapEngine::snapResize(box, edges, place.usable,
                                             isFree ? std::vector<Rect>() : siblingsOn(region, scenery),
                                             isFree ? 0 : SnapEngine::defaultThreshold);
    step.guides = isFree ? std::vector<Guide>() : guidesOf(snap);
    const Rect wanted = geometry.toScreen(snap.frame);
    // The edges that are not dragged stay exactly, and the box on its display.
    double left = edges.contains(Edges::left) ? wanted.minX() : frame.minX();
    double right = edges.contains(Edges::right) ? wanted.maxX() : frame.maxX();
    double top = edges.contains(Edges::top) ? wanted.minY() : frame.minY();
    double bottom = edges.contains(Edges::bottom) ? wanted.maxY() : frame.maxY();
    const Rect usable = place.usableScreen;
    left = std::max(left, usable.minX());
    right = std::min(right, usable.maxX());
    top = std::max(top, usable.minY());
    bottom = std::min(bottom, usable.maxY());
    const Size asked{right - left, bottom - top};
    const Size accepted = SizeLimit::accepted(limits, asked);
    if (accepted != asked) {
        step.refused = asked;
    }
    // A length that is not dragged is left as it is.
    if (edges.contains(Edges::left)) {
        left = right - accepted.width;
    } else if (edges.contains(Edges::right)) {
        right = left + accepted.width;
    }
    if (edges.contains(Edges::top)) {
        top = bottom - accepted.height;
    } else if (edges.contains(Edges::bottom)) {
        bottom = top + accepted.height;
    }
    step.frames[held] = DisplayGeometry::clamp({{left, top}, {right - left, bottom - top}}, usable);
    return step;
}

} // namespace vantrel
