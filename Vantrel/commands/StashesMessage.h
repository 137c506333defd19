// The stashed desks, as sent over the session bus.
#pragma once

#include "Vantrel/commands/MessageFields.h"
#include "VantrelCore/model/Stash.h"

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

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("stashes", self.stashes);
        field("activeStash", self.activeStash);
    }
};

} // namespace vantrel
