// A live window that can be moved: adds to the bare WindowElement port the orders of writes that real
// applications need. Copies share the element. Never persisted.
#pragma once

#include "VantrelCore/ports/WindowElement.h"

#include <memory>

namespace vantrel {

class AXWindowHandle {
public:
    explicit AXWindowHandle(std::shared_ptr<WindowElement> element);

    // Each call reads from the platform. When unavailable: "" for the title, false for the flags.
    [[nodiscard]] WindowAttributes attributes() const;
    [[nodiscard]] std::string title() const;
    [[nodiscard]] std::optional<std::string> subrole() const;
    [[nodiscard]] bool isMinimized() const;
    [[nodiscard]] bool isFullscreen() const;
    [[nodiscard]] std::optional<Rect> frame() const;

    // Writes return true when the platform accepted them, whatever the window then did.
    bool raise() const;
    bool setMinimized(bool isMinimized) const;
    bool setPosition(Point position) const;

    // Writes position, size and position again: many applications shift a window while resizing it. The
    // result of the last write is ignored.
    bool setFrame(const Rect& frame) const;

    // Writes size, position and position again: some windows refuse a position where their old size would not
    // fit on the display. The result of the last write is ignored.
    bool setFrameSizeFirst(const Rect& frame) const;

    // Hold the result while moving several windows of this window's application. May be null.
    [[nodiscard]] std::shared_ptr<void> beginMoves() const;

    [[nodiscard]] const std::shared_ptr<WindowElement>& element() const { return m_element; }

private:
    std::shared_ptr<WindowElement> m_element;
};

} // namespace vantrel
