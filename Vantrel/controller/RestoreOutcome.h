// What became of a restore that the user asked for.
#pragma once

#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>
#include <string>

namespace vantrel {

struct RestoreOutcome {
    enum class Kind : std::uint8_t {
        // It ran to its end; the report says of every window what became of it.
        finished,
        switchedOff,
        needsPermission,
        notEntitled,
        displaysChanging,
        nothingStored,
        // A newer request took its place in the queue.
        superseded,
    };

    Kind kind = Kind::finished;
    // Empty unless finished.
    RestoreReport report;

    bool operator==(const RestoreOutcome&) const = default;

    // A sentence for people.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
