// A live window that can be moved: the orders of writes that real applications need, over the bare
// WindowElement port. Copies share the element. Never persisted.
#pragma once

#include "VantrelCore/ports/WindowElement.h"

#include <memory>

namespace vantrel {

class AXWindowHandle {
public:
    explicit AXWindowHandle(std::shared_ptr<WindowElement> element);

    // Each read asks the platform afresh. Unavailable: "" for the title, false for the flags.
    [[nodiscard]] std::string title() const;
    [[nodiscard]] std::optional<std::string> subrole() const;
    [[nodiscard]] bool isMinimized() const;
    [[nodiscard]] bool isFullscreen() const;
    [[nodiscard]] std::optional<Rect> frame() const;

    // The writes return true when the platform took them, which says nothing of where the window ended up.
    bool raise() const;
    bool setPosition(Point position) const;

    // Position, size, and the position again: many applications shift a window while it is being resized.
    // The result of the last write is ignored.
    bool setFrame(const Rect& frame) const;

    // Size, position, and the position again: for windows that refuse a position which would push them off
    // their display at their old size. The result of the last write is ignored.
    bool setFrameSizeFirst(const Rect& frame) const;

    // To be kept while windows of this window's application are moved one after the other. May be null.
    [[nodiscard]] std::shared_ptr<void> beginMoves() const;

    [[nodiscard]] const std::shared_ptr<WindowElement>& element() const { return m_element; }

private:
    std::shared_ptr<WindowElement> m_element;
};

} // namespace vantrel
