// One client window of the X server as something that can be asked and moved.
#pragma once

#include "Vantrel/platform/x11/WindowFacts.h"
#include "Vantrel/platform/x11/X11Desk.h"
#include "VantrelCore/ports/WindowElement.h"

#include <memory>
#include <span>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

// A window that is gone reads as nothing and takes no write, also when another one has got its id by now.
class X11WindowElement final : public WindowElement {
public:
    X11WindowElement(std::shared_ptr<X11Desk> desk, xcb_window_t window, WindowMarks::Mark mark);

    // One round trip.
    [[nodiscard]] WindowAttributes read(AttributeGroup group) override;

    // One move to the final frame, seen through until the window stands there or the window manager is done
    // with it. True also when the program cannot come closer or was put elsewhere; false when the window is
    // gone, nobody answered within 1.0 second or the window manager left the window as it was.
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
