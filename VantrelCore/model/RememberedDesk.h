// What is remembered of one desk, for lists of desks: its displays, layouts and stashes, without the windows.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/RestoreLog.h"
#include "VantrelCore/model/Stash.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct RememberedDesk {
    struct LayoutInfo {
        std::string name;
        // All of them, also those that cannot be seen.
        std::size_t windows = 0;
        bool isActive = false;
        bool isPinned = false;
        Date learned;

        bool operator==(const LayoutInfo&) const = default;
    };

    std::string configID;
    std::string name;
    // Where they were when the desk was last learned; for the present desk, where they are.
    std::vector<DisplayInfo> displays;
    // "Default" first, then by name. Empty only for the present desk.
    std::vector<LayoutInfo> layouts;
    std::size_t stashes = 0;
    // The newest date on which something was learned, stashed or restored there; none if nothing was.
    std::optional<Date> lastSeen{};
    bool isPresent = false;

    bool operator==(const RememberedDesk&) const = default;

    // The active layout, else the first; null if there are none.
    [[nodiscard]] const LayoutInfo* shownLayout() const;
};

namespace RememberedDesks {

// What is stored, by reference; used only during the call.
struct Stored {
    const std::vector<Layout>& layouts;
    const std::vector<Stash>& stashes;
    const RestoreLog& log;
    std::function<std::string(const std::string& configID)> activeLayoutName;
};

// The desk that is there now. No configID means none.
struct Present {
    std::string configID;
    // Unless it has a layout, which knows the user's name for it.
    std::string name;
    std::vector<DisplayInfo> displays;
};

// The present desk first, then the others by name, ignoring case.
[[nodiscard]] std::vector<RememberedDesk> of(const Stored& stored, const Present& present);

} // namespace RememberedDesks

} // namespace vantrel
