// The outcome of a user's request to save the desk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vantrel {

struct SaveOutcome {
    enum class Kind : std::uint8_t {
        saved,
        restoreInFlight,
        displaysChanging,
        noDisplays,
        needsPermission,
        // The desk shows no window that could be remembered; the stored layout is kept.
        nothingToSave,
        // An internal error; see the log.
        captureFailed,
        // The name is empty or too long.
        invalidName,
        // A layout with that name is already stored, and is pinned.
        pinned,
        writeFailed,
    };

    Kind kind = Kind::saved;
    // The number of windows remembered, for `saved`.
    std::size_t windows = 0;

    bool operator==(const SaveOutcome&) const = default;

    // A sentence for people.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
