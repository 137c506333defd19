// What the X server's events tell of who moves a window: the user, or programs and the window manager by
// themselves.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace vantrel {

// A window manager grabs the keyboard as long as the user moves or resizes a window (openbox 3.6 and xfwm4
// 4.18 do, whether it is done by pointer or by keys) and as long as one of its key combinations is held, such
// as one that tiles windows. The focused window is told. Typing grabs nothing. For window managers that grab
// the pointer alone a pressed button over the moving window tells the same.
class UserMoveEvidence {
public:
    using Time = std::chrono::steady_clock::time_point;

    // Moves that the window manager makes only when it has let go of the keyboard, as with outlines, come at
    // once after.
    static constexpr std::chrono::milliseconds aftermath{250};

    // The window with its frame as it stands now.
    explicit UserMoveEvidence(const Rect& area) : m_area(area) {}

    // What befell the focus of the window.
    enum class Focus : std::uint8_t {
        // The keyboard was grabbed while the window had the focus, or it got the focus during a grab.
        grabbed,
        // Anything else.
        other,
    };
    void noteFocus(Focus focus, Time now);

    enum class Mover : std::uint8_t { nobody, user, unknown };
    // The window was raised, moved or resized and now stands there. Unknown: whether a button is pressed
    // over it decides.
    Mover noteArea(const Rect& area, Time now);
    void notePressedOver() { m_isUsers = true; }

    [[nodiscard]] bool isUsers() const { return m_isUsers; }

private:
    Rect m_area;
    bool m_isGrabbed = false;
    // When the last grab ended.
    std::optional<Time> m_grabEnd;
    bool m_isUsers = false;
};

} // namespace vantrel
