// The result of a user's request to rename or delete a layout, or to rename a desk.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel {

struct LayoutChange {
    enum class Kind : std::uint8_t {
        done,
        // A restore is running, possibly of that very layout.
        restoreInFlight,
        noSuchLayout,
        // The desk has no layout that could carry its name.
        noLayout,
        // The name is empty or too long.
        invalidName,
        nameTaken,
        writeFailed,
    };

    Kind kind = Kind::done;

    bool operator==(const LayoutChange&) const = default;

    // A sentence for people.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
