#include "VantrelCore/studio/GroupArrangement.h"

#include "VantrelCore/windows/CascadeLayout.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <span>

namespace vantrel::GroupArrangement {

namespace {

struct Part {
    double from = 0;
    double length = 0;
};

// Divides a length among parts of at least these minimums, otherwise equally. None when they do not fit.
std::optional<std::vector<Part>> divided(double from, double length, double gap,
                                         const std::vector<double>& minimums) {
    const auto count = static_cast<double>(minimums.size());
    const double total = length - gap * (count - 1);
    // Rounding must not refuse what fits exactly.
    constexpr double slack = 1e-6;
    if (total <= 0 || std::accumulate(minimums.begin(), minimums.end(), 0.0) > total + slack) {
        return std::nullopt;
    }
    // Parts that need more than an equal share get what they need; the others share the rest.
    std::vector<bool> isFixed(minimums.size(), false);
    double rest = total;
    double sharing = count;
    for (bool hasChanged = true; hasChanged && sharing > 0;) {
        hasChanged = false;
        for (std::size_t i = 0; i < minimums.size() && sharing > 0; ++i) {
            if (!isFixed[i] && minimums[i] > rest / sharing + slack) {
                isFixed[i] = true;
                rest -= minimums[i];
                sharing -= 1;
                hasChanged = true;
            }
        }
    }
    std::vector<Part> parts;
    double position = from;
    for (std::size_t i = 0; i < minimums.size(); ++i) {
        const double own = isFixed[i] ? minimums[i] : rest / sharing;
        parts.push_back({position, own});
        position += own + gap;
    }
    return parts;
}

double minimumAcross(const Box& box) {
    return box.minimum.width;
}

double minimumDown(const Box& box) {
    return box.minimum.height;
}

template <typename Minimum>
std::vector<double> minimums(std::span<const Box> boxes, Minimum minimum) {
    std::vector<double> all(boxes.size());
    std::ranges::transform(boxes, all.begin(), minimum);
    return all;
}

template <typename Minimum>
double largest(std::span<const Box> boxes, Minimum minimum) {
    return std::ranges::max(minimums(boxes, minimum));
}

std::optional<std::vector<Rect>> columns(std::span<const Box> boxes, const Rect& area, double gap) {
    const auto parts = divided(area.minX(), area.width(), gap, minimums(boxes, minimumAcross));
    if (!parts || largest(boxes, minimumDown) > area.height()) {
        return std::nullopt;
    }
    std::vector<Rect> frames;
    for (const Part& part : *parts) {
        frames.push_back({{part.from, area.minY()}, {part.length, area.height()}});
    }
    return frames;
}

std::optional<std::vector<Rect>> rows(std::span<const Box> boxes, const Rect& area, double gap) {
    const auto parts = divided(area.minY(), area.height(), gap, minimums(boxes, minimumDown));
    if (!parts || largest(boxes, minimumAcross) > area.width()) {
        return std::nullopt;
    }
    std::vector<Rect> frames;
    for (const Part& part : *parts) {
        frames.push_back({{area.minX(), part.from}, {area.width(), part.length}});
    }
    return frames;
}

std::optional<std::vector<Rect>> grid(std::span<const Box> boxes, const Rect& area, double gap) {
    const auto perRow = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(boxes.size()))));
    std::vector<std::span<const Box>> inRows;
    for (std::size_t first = 0; first < boxes.size(); first += perRow) {
        inRows.push_back(boxes.subspan(first, std::min(perRow, boxes.size() - first)));
    }
    std::vector<double> heights(inRows.size());
    std::ranges::transform(inRows, heights.begin(),
                           [](std::span<const Box> row) { return largest(row, minimumDown); });
    const auto parts = divided(area.minY(), area.height(), gap, heights);
    if (!parts) {
        return std::nullopt;
    }
    std::vector<Rect> frames;
    for (std::size_t i = 0; i < inRows.size(); ++i) {
        const Part& part = (*parts)[i];
        const auto row = columns(inRows[i], {{area.minX(), part.from}, {area.width(), part.length}}, gap);
        if (!row) {
            return std::nullopt;
        }
        frames.insert(frames.end(), row->begin(), row->end());
    }
    return frames;
}

std::optional<std::vector<Rect>> mainAndStack(std::span<const Box> boxes, const Rect& area, double gap) {
    if (boxes.size() == 1) {
        return columns(boxes, area, gap);
    }
    const auto stack = boxes.subspan(1);
    const auto halves =
        divided(area.minX(), area.width(), gap, {boxes.front().minimum.width, largest(stack, minimumAcross)});
    if (!halves || boxes.front().minimum.height > area.height()) {
        return std::nullopt;
    }
    const Part& right = halves->back();
    auto frames = rows(stack, {{right.from, area.minY()}, {right.length, area.height()}}, gap);
    if (frames) {
        frames->insert(frames->begin(),
                       Rect{{halves->front().from, area.minY()}, {halves->front().length, area.height()}});
    }
    return frames;
}

// In the order of the boxes, the first in front.
std::optional<std::vector<Rect>> cascade(std::span<const Box> boxes, const Rect& area) {
    std::vector<WindowRecord> records;
    for (const Box& box : boxes) {
        if (box.minimum.width > area.width() || box.minimum.height > area.height()) {
            return std::nullopt;
        }
        WindowRecord record;
        record.frame = {box.frame.origin,
                        {std::max(box.frame.width(), box.minimum.width),
                         std::max(box.frame.height(), box.minimum.height)}};
        record.zOrder = static_cast<std::int64_t>(records.size());
        records.push_back(record);
    }
    return CascadeLayout::fallbackFrames(records, area);
}

double from(Axis axis, const Rect& frame) {
    return axis == Axis::across ? frame.minX() : frame.minY();
}

double length(Axis axis, const Rect& frame) {
    return axis == Axis::across ? frame.width() : frame.height();
}

} // namespace

std::optional<std::vector<Rect>> arranged(Form form, const std::vector<Box>& boxes, const Rect& area,
                                          double gap) {
    if (boxes.empty()) {
        return std::vector<Rect>();
    }
    if (area.isEmpty()) {
        return std::nullopt;
    }
    switch (form) {
    case Form::columns:
        return columns(boxes, area, gap);
    case Form::rows:
        return rows(boxes, area, gap);
    case Form::grid:
        return grid(boxes, area, gap);
    case Form::mainAndStack:
        return mainAndStack(boxes, area, gap);
    case Form::cascade:
        break;
    }
    return cascade(boxes, area);
}

std::vector<Rect> aligned(Line line, std::vector<Rect> frames) {
    if (frames.empty()) {
        return frames;
    }
    const double left = std::ranges::min(frames, {}, &Rect::minX).minX();
    const double right = std::ranges::max(frames, {}, &Rect::maxX).maxX();
    const double top = std::ranges::min(frames, {}, &Rect::minY).minY();
    const double bottom = std::ranges::max(frames, {}, &Rect::maxY).maxY();
    for (Rect& frame : frames) {
        switch (line) {
        case Line::left:
            frame.origin.x = left;
            break;
        case Line::right:
            frame.origin.x = right - frame.width();
            break;
        case Line::top:
            frame.origin.y = top;
            break;
        case Line::bottom:
            frame.origin.y = bottom - frame.height();
            break;
        case Line::centreAcross:
            frame.origin.x = (left + right - frame.width()) / 2;
            break;
        case Line::centreDown:
            frame.origin.y = (top + bottom - frame.height()) / 2;
            break;
        }
    }
    return frames;
}

std::vector<Rect> distributed(Axis axis, std::vector<Rect> frames) {
    if (frames.size() < 3) {
        return frames;
    }
    std::vector<std::size_t> order(frames.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t index) { return from(axis, frames[index]); });
    const double begin = from(axis, frames[order.front()]);
    const Rect& last = frames[order.back()];
    const double end = from(axis, last) + length(axis, last);
    double taken = 0;
    for (const Rect& frame : frames) {
        taken += length(axis, frame);
    }
    const double gap = (end - begin - taken) / static_cast<double>(frames.size() - 1);
    double position = begin;
    for (const std::size_t index : order) {
        (axis == Axis::across ? frames[index].origin.x : frames[index].origin.y) = position;
        position += length(axis, frames[index]) + gap;
    }
    return frames;
}

std::vector<Rect> equalized(Axis axis, const std::vector<Box>& boxes) {
    std::vector<Rect> frames;
    double common = boxes.empty() ? 0 : length(axis, boxes.front().frame);
    for (const Box& box : boxes) {
        common = std::max(common, axis == Axis::across ? box.minimum.width : box.minimum.height);
    }
    for (const Box& box : boxes) {
        frames.push_back(box.frame);
        (axis == Axis::across ? frames.back().size.width : frames.back().size.height) = common;
    }
    return frames;
}

} // namespace vantrel::GroupArrangement
