// The outcome of joining two remembered desks.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel {

struct DeskJoining {
    enum class Kind : std::uint8_t {
        done,
        // No desk is remembered under one of the names, or several are.
        noSuchDesk,
        alreadyOne,
        // No desks were named, and no remembered one resembles the current one.
        nothingOffered,
        // The displays differ in more than their identifiers.
        differentDisplays,
        restoreInFlight,
        writeFailed,
    };

    Kind kind = Kind::done;
    // For noSuchDesk: the name.
    std::string name{};
    // The current desk is the one joined, so its windows can be restored.
    bool isCurrent = false;

    bool operator==(const DeskJoining&) const = default;

    // A sentence for people.
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
