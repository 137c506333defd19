#include "VantrelCore/model/FrameMatching.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace vantrel::FrameMatching {

std::size_t windowsWithoutCounterpart(const std::vector<WindowRecord>& saved,
                                      const std::vector<WindowRecord>& current, double tolerance) {
    std::unordered_map<std::string_view, std::vector<Rect>> freeFrames;
    for (const auto& window : current) {
        freeFrames[window.bundleID].push_back(window.frame);
    }
    std::size_t count = 0;
    for (const auto& window : saved) {
        auto& frames = freeFrames[window.bundleID];
        const auto counterpart = std::ranges::find_if(
            frames, [&](const Rect& frame) { return approxEqual(frame, window.frame, tolerance); });
        if (counterpart == frames.end()) {
            ++count;
        } else {
            frames.erase(counterpart);
        }
    }
    return count;
}

} // namespace vantrel::FrameMatching
