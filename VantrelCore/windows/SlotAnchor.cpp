#include "VantrelCore/windows/SlotAnchor.h"

#include <algorithm>

namespace vantrel::SlotAnchor {

Rect anchor(Size windowSize, const Rect& slot) {
    const double leftMargin = std::max(0.0, (slot.width() - windowSize.width) / 2);
    const double topMargin = std::max(0.0, (slot.height() - windowSize.height) / 2);
    return {{slot.minX() + leftMargin, slot.minY() + topMargin}, windowSize};
}

} // namespace vantrel::SlotAnchor
