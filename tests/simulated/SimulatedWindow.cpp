#include "tests/simulated/SimulatedWindow.h"

#include <algorithm>
#include <cmath>

namespace vantrel::simulated {

Size SimulatedWindow::acceptedSize(Size wanted) const {
    Size size = wanted;
    if (behaviour.sizeIncrement) {
        size.width = std::floor(size.width / behaviour.sizeIncrement->width) * behaviour.sizeIncrement->width;
        size.height =
            std::floor(size.height / behaviour.sizeIncrement->height) * behaviour.sizeIncrement->height;
    }
    if (behaviour.minimumSize) {
        size.width = std::max(size.width, behaviour.minimumSize->width);
        size.height = std::max(size.height, behaviour.minimumSize->height);
    }
    return size;
}

bool isStretched(const PlaceStates& states) {
    return states.isMaximized() || states.isFullscreen;
}

Rect stretched(const PlaceStates& states, const Rect& area, const Rect& normal) {
    const Rect& across = states.isFullscreen || states.isMaximizedHorizontally ? area : normal;
    const Rect& down = states.isFullscreen || states.isMaximizedVertically ? area : normal;
    return {{across.minX(), down.minY()}, {across.width(), down.height()}};
}

} // namespace vantrel::simulated
