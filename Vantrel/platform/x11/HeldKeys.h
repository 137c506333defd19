// Which keys are held down, as far as their events reach this program: tells the first press of a key from
// its automatic repetitions.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <xcb/xcb.h>

namespace vantrel {

// A release can be lost: while one hot key is held, the presses of all other keys come here, too, and their
// releases go elsewhere once the hot key is let go.
class HeldKeys {
public:
    // In milliseconds of the server's clock; far above the usual delays before the first repetition (X's own
    // default is 660).
    static constexpr std::uint32_t longestRepeatGap = 2500;

    // True when this press begins; false when it repeats.
    bool press(xcb_keycode_t key, xcb_timestamp_t time) {
        auto& last = m_lastPress[key];
        // The server's clock starts again from zero every 50 days; the difference does not mind.
        const bool isRepeated = last && time - *last <= longestRepeatGap;
        last = time;
        return !isRepeated;
    }

    void release(xcb_keycode_t key) { m_lastPress[key].reset(); }

private:
    std::array<std::optional<xcb_timestamp_t>, 256> m_lastPress{};
};

} // namespace vantrel
