// Which of two ways starts the program at login: systemd's user unit where systemd runs the session,
// otherwise the entry in the autostart folder. Never both, because the second start would open the panel.
#pragma once

#include <cstdint>

namespace vantrel::AutostartWay {

struct Facts {
    // The setting.
    bool isWanted = false;
    // The setting was changed while the program ran.
    bool isChange = false;
    // The unit starts this program, in sessions like this one.
    bool isUnitUsable = false;
    bool isUnitEnabled = false;
    // The user has changed the entry, which includes switching it off in the desktop's settings.
    bool isEntryTheUsers = false;
};

enum class UnitChange : std::uint8_t { nothing, enable, disable };

struct Plan {
    UnitChange unit = UnitChange::nothing;
    bool wantsEntry = false;

    bool operator==(const Plan&) const = default;
};

// A unit that the user has enabled by hand stays enabled until the setting is switched.
[[nodiscard]] constexpr Plan plan(const Facts& facts) {
    const bool usesUnit = facts.isWanted && facts.isUnitUsable && !facts.isEntryTheUsers;
    Plan plan{.unit = UnitChange::nothing, .wantsEntry = facts.isWanted && !usesUnit};
    if (usesUnit && !facts.isUnitEnabled) {
        plan.unit = UnitChange::enable;
    } else if (!usesUnit && facts.isUnitEnabled && (facts.isWanted || facts.isChange)) {
        plan.unit = UnitChange::disable;
    }
    return plan;
}

} // namespace vantrel::AutostartWay
