// Decides when to make up for a restore that a display change called for while nobody was there: the user was
// away, or windows could not be moved.
#pragma once

#include "VantrelCore/ports/Desk.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel::MissedRestore {

enum class Verdict : std::uint8_t { wait, makeUp, drop };

struct Situation {
    // No display has changed since.
    bool isSameDesk = false;
    bool isAway = false;
    bool canMoveWindows = false;
    // The windows once the displays had been settled for a while, and now. Without either, nobody can have
    // moved any: the user was away, or the platform moves no windows without the permission.
    std::optional<std::vector<WindowOutline>> before = std::nullopt;
    std::optional<std::vector<WindowOutline>> now = std::nullopt;
};

[[nodiscard]] Verdict decide(const Situation& situation);

// A window has left its place. Windows that were opened or closed do not count.
[[nodiscard]] bool hasAnyMoved(const std::vector<WindowOutline>& before,
                               const std::vector<WindowOutline>& now);

} // namespace vantrel::MissedRestore
