// Why and until when a pinned layout is not enforced.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel {

struct PinPause {
    enum class Cause : std::uint8_t {
        // The user asked for another arrangement. Lasts until the displays change.
        userAskedForAnother,
        // The windows did not stay in place. Lasts until the layout changes.
        gaveUp,
    };

    Cause cause = Cause::userAskedForAnother;
    // The event that caused it: "the scene \"Work\" was applied".
    std::string reason;

    bool operator==(const PinPause&) const = default;

    // For people: "paused until the displays change: the scene \"Work\" was applied".
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
