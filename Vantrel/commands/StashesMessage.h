// The stashed desks, as sent over the session bus.
#pragma once

#include "VantrelCore/model/Stash.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct StashesMessage {
    // Newest first.
    std::vector<Stash> stashes;
    // The ID of the current desk's newest stash.
    std::optional<std::string> activeStash;

    bool operator==(const StashesMessage&) const = default;
};

void to_json(nlohmann::json& json, const StashesMessage& message);
void from_json(const nlohmann::json& json, StashesMessage& message);

} // namespace vantrel
