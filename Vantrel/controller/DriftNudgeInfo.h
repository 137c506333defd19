// The quiet notice that windows have moved away from the last applied scene.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel {

struct DriftNudgeInfo {
    std::string sceneID;
    std::string sceneName;
    std::int64_t movedCount = 0;

    bool operator==(const DriftNudgeInfo&) const = default;
};

} // namespace vantrel
