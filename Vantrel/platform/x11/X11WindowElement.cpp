#include "Vantrel/platform/x11/X11WindowElement.h"

#include "Vantrel/platform/x11/ClientMessage.h"
#include "Vantrel/platform/x11/WindowMove.h"
#include "Vantrel/platform/x11/WindowQuery.h"

#include <optional>
#include <utility>

namespace vantrel {

X11WindowElement::X11WindowElement(std::shared_ptr<X11Desk> desk, xcb_window_t window, WindowMarks::Mark mark)
    : m_desk(std::move(desk)), m_window(window), m_mark(mark) {}

WindowAttributes X11WindowElement::attributes(const WindowFacts& facts) {
    const Rect frame = FrameArithmetic::visibleFrame(facts.parts);
    return {.title = facts.title,
            .subrole = facts.traits.subrole(),
            .isMinimized = facts.traits.isMinimized(),
            .isFullscreen = facts.traits.isFullscreen,
            .position = frame.origin,
            .size = frame.size};
}

WindowAttributes X11WindowElement::read(AttributeGroup group) {
    const auto scope = group == AttributeGroup::all ? WindowScope::element : WindowScope::frame;
    const auto facts = WindowQuery(*m_desk->connection, m_window, scope).collect();
    if (!facts || !m_desk->marks.isSame(m_window, facts->isMarked, m_mark)) {
        return {};
    }
    if (group == AttributeGroup::all) {
        return attributes(*facts);
    }
    const Rect frame = FrameArithmetic::visibleFrame(facts->parts);
    WindowAttributes place;
    place.position = frame.origin;
    place.size = frame.size;
    return place;
}

std::vector<bool> X11WindowElement::write(std::span<const FrameWrite> writes) {
    if (writes.empty()) {
        return {};
    }
    const bool isTaken = WindowMove(*m_desk, m_window, m_mark).to(FrameArithmetic::coalesce(writes));
    return std::vector<bool>(writes.size(), isTaken);
}

bool X11WindowElement::raise() {
    const X11Connection& connection = *m_desk->connection;
    const auto facts = WindowQuery(connection, m_window, WindowScope::frame).collect();
    const WindowManager windowManager = m_desk->windowManager;
    if (!facts || !m_desk->marks.isSame(m_window, facts->isMarked, m_mark) || !windowManager.isPresent) {
        return false;
    }
    if (windowManager.restacks) {
        ClientMessage::restackOnTop(connection, m_window);
    } else {
        // A ConfigureRequest to the window manager, which stacks without focusing.
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(connection.xcb(), m_window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    }
    return xcb_flush(connection.xcb()) > 0;
}

} // namespace vantrel
