#include "VantrelCore/windows/CascadeLayout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vantrel::CascadeLayout {

namespace {

// More than any real display needs; bounds the work for tiny steps.
constexpr double maxPositions = 1000;

double offset(std::size_t rank, double freeLength) {
    return static_cast<double>(rank % positionCount(freeLength, defaultStep)) * defaultStep;
}

} // namespace

Size defaultSize(Size usable) {
    return {usable.width * 0.6, usable.height * 0.7};
}

Size fittedSize(Size size, Size usable) {
    if (Rect{{}, size}.isEmpty()) {
        return defaultSize(usable);
    }
    return {std::min(size.width, usable.width), std::min(size.height, usable.height)};
}

std::size_t positionCount(double freeLength, double step) {
    if (!(freeLength > 0 && step > 0)) {
        return 1;
    }
    return static_cast<std::size_t>(std::min(std::floor(freeLength / step) + 1, maxPositions));
}

std::vector<Rect> fallbackFrames(const std::vector<WindowRecord>& records, const Rect& screen) {
    std::vector<Rect> frames;
    frames.reserve(records.size());
    for (const auto& record : records) {
        frames.push_back(record.frame);
    }
    if (screen.isEmpty()) {
        return frames;
    }
    // Back to front; at equal depth the earlier record counts as nearer to the front.
    std::vector<std::size_t> order(records.size());
    std::iota(order.rbegin(), order.rend(), std::size_t{0});
    std::ranges::stable_sort(order, std::ranges::greater{},
                             [&](std::size_t index) { return records[index].zOrder; });
    for (std::size_t rank = 0; rank < order.size(); ++rank) {
        Rect& frame = frames[order[rank]];
        frame.size = fittedSize(frame.size, screen.size);
        frame.origin = {
            screen.minX() + offset(rank, screen.width() - frame.width()),
            screen.minY() + offset(rank, screen.height() - frame.height()),
        };
    }
    return frames;
}

} // namespace vantrel::CascadeLayout
