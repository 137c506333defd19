#include "Vantrel/platform/x11/X11WindowElement.h"

#include "Vantrel/platform/x11/ClientMessage.h"
#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/WindowMove.h"
#include "Vantrel/platform/x11/WindowQuery.h"
#include "Vantrel/platform/x11/X11UserMoveWatch.h"

#include <chrono>
#include <optional>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::seconds raiseLimit(1);

// The client in front of all others.
xcb_window_t topmost(const X11Connection& connection) {
    constexpr std::uint32_t listWords = 16384;
    xcb_connection_t* const xcb = connection.xcb();
    const auto reply = ownReply(xcb_get_property_reply(
        xcb,
        xcb_get_property(xcb, 0, connection.root(), connection.atoms().netClientListStacking, XCB_ATOM_WINDOW,
                         0, listWords),
        nullptr));
    const auto stacking = PropertyValues::numbers(reply, XCB_ATOM_WINDOW);
    return stacking.empty() ? xcb_window_t{XCB_WINDOW_NONE} : stacking.back();
}

} // namespace

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

std::unique_ptr<UserMoveWatch> X11WindowElement::watchUserMoves() {
    const auto facts = WindowQuery(*m_desk->connection, m_window, WindowScope::frame).collect();
    if (!facts || !m_desk->marks.isSame(m_window, facts->isMarked, m_mark)) {
        return nullptr;
    }
    return X11UserMoveWatch::begin(m_desk, m_window);
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
        return xcb_flush(connection.xcb()) > 0;
    }
    // xfwm4 focuses a window that is raised without naming a sibling.
    const auto top = topmost(connection);
    if (top == m_window) {
        return true;
    }
    ClientMessage::restackAbove(connection, m_window, top);
    // This raise must be done before the next one starts.
    return m_desk->fence.await(std::chrono::steady_clock::now() + raiseLimit);
}

} // namespace vantrel
