#include "VantrelCore/studio/SizeLimit.h"

#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <cmath>

namespace vantrel::SizeLimit {

namespace {

using FixedSize = AppSizeBehavior::FixedSize;
using MinClamped = AppSizeBehavior::MinClamped;

std::string always(const std::string& appName, Size size) {
    return trf("{} is always {} × {}.", appName, std::lround(size.width), std::lround(size.height));
}

} // namespace

Size smallest(const AppSizeBehavior::Classification& behavior) {
    if (const auto* const fixed = std::get_if<FixedSize>(&behavior)) {
        return fixed->size;
    }
    const auto* const clamped = std::get_if<MinClamped>(&behavior);
    return clamped != nullptr ? clamped->size : Size{};
}

Size accepted(const AppSizeBehavior::Classification& behavior, Size wanted) {
    const Size least = smallest(behavior);
    if (std::holds_alternative<FixedSize>(behavior)) {
        return least;
    }
    return {std::max(wanted.width, least.width), std::max(wanted.height, least.height)};
}

std::string problem(const std::string& appName, const AppSizeBehavior::Classification& behavior,
                    Size wanted) {
    constexpr double tolerance = AppSizeBehavior::tolerance;
    if (const auto* const fixed = std::get_if<FixedSize>(&behavior)) {
        const bool fits = std::abs(wanted.width - fixed->size.width) <= tolerance &&
                          std::abs(wanted.height - fixed->size.height) <= tolerance;
        return fits ? "" : always(appName, fixed->size);
    }
    const auto* const clamped = std::get_if<MinClamped>(&behavior);
    if (clamped != nullptr && wanted.width < clamped->size.width - tolerance) {
        return trf("{} is never narrower than {}.", appName, std::lround(clamped->size.width));
    }
    if (clamped != nullptr && wanted.height < clamped->size.height - tolerance) {
        return trf("{} is never lower than {}.", appName, std::lround(clamped->size.height));
    }
    return "";
}

std::string fact(const std::string& appName, const AppSizeBehavior::Classification& behavior) {
    if (const auto* const fixed = std::get_if<FixedSize>(&behavior)) {
        return always(appName, fixed->size);
    }
    const auto* const clamped = std::get_if<MinClamped>(&behavior);
    return clamped == nullptr ? ""
                              : trf("{} is never smaller than {} × {}.", appName,
                                    std::lround(clamped->size.width), std::lround(clamped->size.height));
}

} // namespace vantrel::SizeLimit
