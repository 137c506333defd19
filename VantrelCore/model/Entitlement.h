// Whether this copy may learn and restore, and why.
#pragma once

#include "VantrelCore/model/License.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantrel {

struct Entitlement {
    enum class Kind : std::uint8_t {
        // This build needs no licence.
        notNeeded,
        licensed,
        trial,
        trialOver,
        // The stored licence is not valid: it was damaged, changed or copied, has expired or was not renewed.
        refused,
    };

    Kind kind = Kind::notNeeded;
    // A sentence or two for the user.
    std::string reason;
    // With trial and trialOver.
    std::optional<Date> trialEndsAt{};
    // With trial; a started day counts as a whole one.
    std::optional<std::int64_t> trialDaysLeft{};
    // With licensed, and with refused if the licence expired or was not renewed.
    std::optional<License> license{};
    // When the entitlement will change without an action, if ever.
    std::optional<Date> changesAt{};

    bool operator==(const Entitlement&) const = default;

    [[nodiscard]] bool isEntitled() const { return kind != Kind::trialOver && kind != Kind::refused; }
};

} // namespace vantrel
