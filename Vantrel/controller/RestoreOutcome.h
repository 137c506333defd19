// What became of a restore that the user asked for.
#pragma once

#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vantrel {

struct RestoreOutcome {
    // Told once, on the main thread.
    using Done = std::function<void(const RestoreOutcome&)>;

    enum class Kind : std::uint8_t {
        // It ran to its end; the report says of every window what became of it.
        finished,
        switchedOff,
        needsPermission,
        notEntitled,
        displaysChanging,
        nothingStored,
        // What was asked for does not exist any more, or holds no window.
        noSuchLayout,
        noSuchStash,
        emptyLayout,
        // A restore runs, and this one may not wait for it.
        restoreInFlight,
        writeFailed,
        nothingToUndo,
        // The last restore was on another desk and can be undone there.
        undoElsewhere,
        // A newer request took its place in the queue.
        superseded,
        // An error inside the program; the log has it.
        failed,
    };

    Kind kind = Kind::finished;
    // Empty unless finished.
    RestoreReport report;

    bool operator==(const RestoreOutcome&) const = default;

    // Tells `done`, if any, that nothing is going to move; returns false.
    static bool refuse(Kind kind, const Done& done);

    // A sentence for people.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
