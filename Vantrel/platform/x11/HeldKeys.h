// Tracks held keys, to tell a key press from auto-repeat.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <xcb/xcb.h>

namespace vantrel {

// Releases can be lost: while a hot key is held, we get the presses of all other keys too. If the hot key is
// released first, their releases go elsewhere. A press therefore counts as a repeat only within a time limit.
class HeldKeys {
public:
    // In milliseconds of server time. Far above the usual delay before the first repeat (X's default is 660).
    static constexpr std::uint32_t longestRepeatGap = 2500;

    // True for a new press, false for a repeat.
    bool press(xcb_keycode_t key, xcb_timestamp_t time) {
        auto& last = m_lastPress[key];
        // Server time wraps every 50 days; unsigned subtraction handles that.
        const bool isRepeated = last && time - *last <= longestRepeatGap;
        last = time;
        return !isRepeated;
    }

    void release(xcb_keycode_t key) { m_lastPress[key].reset(); }

private:
    std::array<std::optional<xcb_timestamp_t>, 256> m_lastPress{};
};

} // namespace vantrel
