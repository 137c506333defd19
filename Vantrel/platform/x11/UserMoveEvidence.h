// Infers from X events whether the user moves a window, or a program or the window manager does.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace vantrel {

// Window managers grab the keyboard while the user moves or resizes a window (openbox 3.6 and xfwm4 4.18 do,
// for moves by pointer and by keyboard) and while one of their shortcuts is held, such as one that tiles
// windows. The focused window gets an event about the grab. Typing causes no grab. For window managers that
// grab only the pointer, a pressed button over the moving window is the sign.
class UserMoveEvidence {
public:
    using Time = std::chrono::steady_clock::time_point;

    // Some window managers move the window only after ending the grab, for example when they drag an outline.
    // Moves this soon after a grab count as the user's.
    static constexpr std::chrono::milliseconds aftermath{250};

    // `area` is the current area of the window with its frame.
    explicit UserMoveEvidence(const Rect& area) : m_area(area) {}

    // What a focus event says.
    enum class Focus : std::uint8_t {
        // The keyboard was grabbed while the window had the focus, or it got the focus during a grab.
        grabbed,
        // Anything else.
        other,
    };
    void noteFocus(Focus focus, Time now);

    enum class Mover : std::uint8_t { nobody, user, unknown };
    // Call after the window was raised, moved or resized, with its new area. On `unknown`, the caller checks
    // whether a button is pressed over the window.
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
