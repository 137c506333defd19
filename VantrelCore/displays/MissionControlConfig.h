// The two settings of macOS that decide whether windows can be put back reliably across displays.
#pragma once

#include <cstdint>
#include <optional>

namespace vantrel {

struct MissionControlConfig {
    enum class Classification : std::uint8_t { losing, winning, unknown };

    // Each display has its own Spaces; absent when it could not be read.
    std::optional<bool> separateSpaces;
    // Spaces are rearranged by most recent use; absent when it could not be read.
    std::optional<bool> autoRearrangeSpaces;

    bool operator==(const MissionControlConfig&) const = default;

    // One unfavourable value is enough to lose; winning needs both known and favourable.
    [[nodiscard]] Classification classification() const;

    // Whether the system applies the favourable values only at the next login.
    [[nodiscard]] bool isFixedAtLogin() const { return separateSpaces == false; }
};

} // namespace vantrel
