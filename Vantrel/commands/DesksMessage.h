// Every desk with a saved layout, as sent over the session bus.
#pragma once

#include "Vantrel/commands/MessageFields.h"
#include "VantrelCore/model/Layout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct DeskMessage {
    std::string configID;
    std::string name;
    bool isCurrent = false;
    std::string activeLayoutName;
    // "Default" first.
    std::vector<Layout> layouts;
    // Absent from replies of older versions.
    std::optional<std::int64_t> stashes{};
    // Also absent if nothing was ever learned there.
    std::optional<Date> lastSeen{};

    bool operator==(const DeskMessage&) const = default;

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("configID", self.configID);
        field("name", self.name);
        field("isCurrent", self.isCurrent);
        field("activeLayoutName", self.activeLayoutName);
        field("layouts", self.layouts);
        field("stashes", self.stashes);
        field("lastSeen", self.lastSeen);
    }

    // The active layout, else the first; null if there are none.
    [[nodiscard]] const Layout* shownLayout() const;
};

// The current desk first, then by name.
struct DesksMessage {
    std::vector<DeskMessage> desks;

    bool operator==(const DesksMessage&) const = default;

    template <typename Self, typename Field>
    static void fields(Self& self, Field&& field) {
        field("desks", self.desks);
    }
};

} // namespace vantrel
