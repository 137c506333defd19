// Why a pinned layout is left as the desk stands, and until when.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel {

struct PinPause {
    enum class Cause : std::uint8_t {
        // The user asked for another arrangement. Until the displays change.
        userAskedForAnother,
        // The windows did not stay where they were put. Until the layout changes.
        inVain,
    };

    Cause cause = Cause::userAskedForAnother;
    // What happened: "the scene \"Work\" was applied".
    std::string reason;

    bool operator==(const PinPause&) const = default;

    // For people: "paused until the displays change: the scene \"Work\" was applied".
    [[nodiscard]] std::string text() const;
};

} // namespace vantrel
