// A desk put aside, which can be brought back for a week.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct Stash {
    // Unique; from freshUUID().
    std::string id;
    Date createdAt;
    std::string configID;
    Layout layout;
    std::int64_t windowCount = 0;
    // The desk's readable name at stash time.
    std::string deskName;
    // The scene that was applied when the stash was taken.
    std::optional<std::string> appliedSceneName;
    std::optional<std::int64_t> appliedSceneWindowCount;

    bool operator==(const Stash&) const = default;
};

void to_json(nlohmann::json& json, const Stash& stash);
void from_json(const nlohmann::json& json, Stash& stash);

} // namespace vantrel
