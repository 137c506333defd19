// The notification for problems that the user must not miss: windows that could not be put back after
// docking, files that cannot be read or written, calendars without access. Never reports a success.
#pragma once

#include "Vantrel/controller/PublishedState.h"

#include <optional>
#include <string>

namespace vantrel {

struct ProblemNotification {
    std::string title;
    std::string body;
    // Undo would revert the restore that left windows behind.
    bool offersUndo = false;

    bool operator==(const ProblemNotification&) const = default;

    // In seconds. Until then a restore tries again what it could not move.
    static constexpr double patience = 20;

    // One for all problems; none without problems.
    [[nodiscard]] static std::optional<ProblemNotification> of(const PublishedState& state, Date now);
};

} // namespace vantrel
