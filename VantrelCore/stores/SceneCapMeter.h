// Shows how many of the allowed scenes are used, once the limit is near.
#pragma once

#include <cstddef>
#include <string>

namespace vantrel::SceneCapMeter {

inline constexpr std::size_t showThreshold = 9;

[[nodiscard]] constexpr bool shouldShow(std::size_t count) {
    return count >= showThreshold;
}

// "9 of 12".
[[nodiscard]] std::string label(std::size_t count);

} // namespace vantrel::SceneCapMeter
