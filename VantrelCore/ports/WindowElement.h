// Port: one window of a running application, which can be read and moved.
//
// Coordinates are global, in points, origin at the top left of the primary display; the frame is what the
// user sees (on X11 with the window manager's decoration and without a client's own shadow). Every failure of
// the platform is an absent value or a false result, never an exception. Reads and writes give up after 1.0
// second. An element is used by one thread at a time.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/ports/UserMoveWatch.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace vantrel {

// The subrole of an ordinary document window, in macOS Accessibility terms.
inline constexpr const char* standardWindowSubrole = "AXStandardWindow";

// A window's readable attributes; absent ones could not be read or had the wrong type.
struct WindowAttributes {
    std::optional<std::string> title;
    std::optional<std::string> subrole;
    std::optional<bool> isMinimized;
    std::optional<bool> isFullscreen;
    std::optional<Point> position;
    // Not read when the position could not be read.
    std::optional<Size> size;

    bool operator==(const WindowAttributes&) const = default;

    // Present when both position and size are.
    [[nodiscard]] std::optional<Rect> frame() const {
        if (!position || !size) {
            return std::nullopt;
        }
        return Rect{*position, *size};
    }
};

enum class AttributeGroup : std::uint8_t {
    all,
    // Position and size only: what verifying a move needs.
    frame,
};

// One write: a Point sets the position, a Size the size.
using FrameWrite = std::variant<Point, Size>;

class WindowElement {
public:
    WindowElement() = default;
    WindowElement(const WindowElement&) = delete;
    WindowElement& operator=(const WindowElement&) = delete;
    virtual ~WindowElement() = default;

    // Whether both are the same window. Does not query the platform.
    [[nodiscard]] virtual bool isSameWindow(const WindowElement& other) const { return this == &other; }

    // Reads current values, in one exchange where the platform can.
    [[nodiscard]] virtual WindowAttributes read(AttributeGroup group) = 0;

    // Performs the writes in order and returns one result per write: whether the platform accepted it. A
    // platform that sets position and size together may do the batch as one write to the final frame; every
    // write then gets that result. Returns once the platform has processed the request or timed out.
    [[nodiscard]] virtual std::vector<bool> write(std::span<const FrameWrite> writes) = 0;

    // Hold the returned object while moving several windows of this window's application: the platform then
    // prepares for moves only once. Null where no preparation is needed.
    [[nodiscard]] virtual std::shared_ptr<void> beginMoves() { return nullptr; }

    // Watches from now on for moves of this window by the user. Null when the platform cannot detect them or
    // the window is gone.
    [[nodiscard]] virtual std::unique_ptr<UserMoveWatch> watchUserMoves() { return nullptr; }

    // Minimises the window or brings it back, and returns whether the platform accepted that.
    virtual bool setMinimized(bool isMinimized) = 0;

    // Brings the window to the front of the stack; does not focus it where the platform allows.
    virtual bool raise() = 0;
};

} // namespace vantrel
