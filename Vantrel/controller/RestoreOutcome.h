// The outcome of a restore that the user asked for.
#pragma once

#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vantrel {

struct RestoreOutcome {
    // Called once, on the main thread.
    using Done = std::function<void(const RestoreOutcome&)>;

    enum class Kind : std::uint8_t {
        // Ran to its end; the report has the outcome for every window.
        finished,
        switchedOff,
        needsPermission,
        notEntitled,
        displaysChanging,
        nothingStored,
        // The requested layout or stash no longer exists, or contains no windows.
        noSuchLayout,
        noSuchStash,
        emptyLayout,
        // Another restore is running, and this one cannot be queued behind it.
        restoreInFlight,
        writeFailed,
        nothingToUndo,
        // The last restore was on another desk and can be undone there.
        undoElsewhere,
        // A newer request replaced it in the queue.
        superseded,
        // An internal error; see the log.
        failed,
    };

    Kind kind = Kind::finished;
    // Empty unless finished.
    RestoreReport report;

    bool operator==(const RestoreOutcome&) const = default;

    // A sentence for people.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
