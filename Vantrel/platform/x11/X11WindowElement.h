// A client window of the X server that can be read and moved.
#pragma once

#include "Vantrel/platform/x11/WindowFacts.h"
#include "Vantrel/platform/x11/X11Desk.h"
#include "VantrelCore/ports/WindowElement.h"

#include <memory>
#include <span>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

// A window that is gone has no attributes and refuses writes, even if another window has taken its id.
class X11WindowElement final : public WindowElement {
public:
    X11WindowElement(std::shared_ptr<X11Desk> desk, xcb_window_t window, WindowMarks::Mark mark);

    // Takes one round trip.
    [[nodiscard]] WindowAttributes read(AttributeGroup group) override;

    // Makes one move to the final frame and waits until the window is there or the window manager is done.
    // Returns true even if the program cannot get closer or the window ended up elsewhere. Returns false if
    // the window is gone, did not move within 1.0 second or was left as it was by the window manager.
    [[nodiscard]] std::vector<bool> write(std::span<const FrameWrite> writes) override;

    [[nodiscard]] std::unique_ptr<UserMoveWatch> watchUserMoves() override;

    // Successive raises keep their order.
    bool raise() override;

    [[nodiscard]] static WindowAttributes attributes(const WindowFacts& facts);

private:
    std::shared_ptr<X11Desk> m_desk;
    xcb_window_t m_window;
    WindowMarks::Mark m_mark;
};

} // namespace vantrel
