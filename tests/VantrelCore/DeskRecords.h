// Records in which only what a test is about is told.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Layout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

// Named like its identity.
inline DisplayInfo displayOf(const std::string& uuid, const Rect& frame,
                             const std::optional<Rect>& visible = std::nullopt) {
    return {uuid, uuid, frame, false, std::nullopt, visible};
}

inline WindowRecord windowOf(const std::string& bundleID, const Rect& frame,
                             const std::string& displayUUID = "", std::int64_t zOrder = 0) {
    return {bundleID, "", "", frame, displayUUID, zOrder, std::nullopt};
}

inline Layout layoutOf(std::vector<WindowRecord> windows) {
    Layout layout;
    layout.windows = std::move(windows);
    return layout;
}

inline AppRule ignoring(const std::string& bundleID) {
    return {bundleID, bundleID, AppRule::Ignore{}, std::nullopt};
}

inline AppRule forcing(const std::string& bundleID, const std::string& displayUUID) {
    return {bundleID, bundleID, AppRule::ForceDisplay{displayUUID, "Display"}, std::nullopt};
}

} // namespace vantrel
