// What became of the user's wish to remember the desk as it stands now.
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
        // The desk shows no window that could be remembered; what is stored stays.
        nothingToSave,
        // An error inside the program; the log has it.
        captureFailed,
        // The name is empty or too long.
        invalidName,
        // A layout of that name is stored, and pinned.
        pinned,
        writeFailed,
    };

    Kind kind = Kind::saved;
    // The windows remembered, for `saved`.
    std::size_t windows = 0;

    bool operator==(const SaveOutcome&) const = default;

    // A sentence for people.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
