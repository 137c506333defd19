// What the heads-up display is told while it happens.
#pragma once

#include <cstdint>
#include <variant>

namespace vantrel {

namespace HUD {

struct Restoring {
    bool operator==(const Restoring&) const = default;
};
struct Done {
    std::int64_t windows = 0;
    double seconds = 0;
    bool operator==(const Done&) const = default;
};
// The user asked for the desk to be remembered, and it was.
struct Saved {
    std::int64_t windows = 0;
    bool operator==(const Saved&) const = default;
};

} // namespace HUD

using HUDEvent = std::variant<HUD::Restoring, HUD::Done, HUD::Saved>;

} // namespace vantrel
