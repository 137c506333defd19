#include "Vantrel/platform/x11/SizeHints.h"

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

bool explains(double asked, double actual, std::int32_t min, std::int32_t max, std::int32_t increment) {
    // Hints may contradict each other. The minimum wins, as in window managers.
    const double lowest = std::max(1, min);
    const double highest = max > 0 ? std::max<double>(lowest, max) : std::max(lowest, asked);
    const double allowed = std::clamp(asked, lowest, highest);
    return std::abs(actual - allowed) < std::max(1, increment);
}

} // namespace

bool SizeHints::explainWidth(double asked, double actual) const {
    return hasAspect || explains(asked, actual, std::max(minWidth, baseWidth), maxWidth, widthIncrement);
}

bool SizeHints::explainHeight(double asked, double actual) const {
    return hasAspect || explains(asked, actual, std::max(minHeight, baseHeight), maxHeight, heightIncrement);
}

} // namespace vantrel
