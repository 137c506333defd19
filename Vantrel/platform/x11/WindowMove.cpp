#include "Vantrel/platform/x11/WindowMove.h"

#include "Vantrel/platform/x11/ClientMessage.h"
#include "Vantrel/platform/x11/MonitorQuery.h"
#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/WindowChangeWatch.h"
#include "Vantrel/platform/x11/WindowQuery.h"

#include <algorithm>
#include <tuple>
#include <vector>
#include <xcb/xcb_icccm.h>

namespace vantrel {

namespace {

constexpr std::chrono::seconds limit(1);

// An ordinary move is seen to arrive. Other cases need a fence, which costs openbox half as much as a move,
// so we send one only once no window has moved for this long.
constexpr std::chrono::milliseconds usualDelay(50);

// By how much a monitor's usable area may differ from a remembered one and still count as the same.
constexpr double maximizedTolerance = 2;

std::vector<Rect> monitors(const X11Connection& connection) {
    std::vector<Rect> areas;
    for (const auto& monitor : MonitorQuery::read(connection).value_or(std::vector<MonitorReading>{})) {
        areas.push_back(monitor.area);
    }
    return areas;
}

Rect frameOf(const WindowFacts& facts) {
    return FrameArithmetic::visibleFrame(facts.parts);
}

// A client removes its shadow only after it learns that it is maximised.
bool isMaximizedAt(const FrameTarget& target, const WindowFacts& facts) {
    FrameParts bare = facts.parts;
    bare.shadow = {};
    return FrameArithmetic::isNear(target, frameOf(facts), maximizedTolerance) ||
           FrameArithmetic::isNear(target, FrameArithmetic::visibleFrame(bare), maximizedTolerance);
}

// Whether the window is in position and its size hints prevent a size closer to the requested one.
bool isAsCloseAsItGets(const FrameTarget& target, const WindowFacts& facts, const SizeHints& hints) {
    const auto request = FrameArithmetic::request(target, facts.parts);
    const Size actual = facts.parts.client.size;
    return FrameArithmetic::isAt({.position = target.position}, frameOf(facts)) &&
           hints.explainWidth(request.width.value_or(0), actual.width) &&
           hints.explainHeight(request.height.value_or(0), actual.height);
}

// Whether the window manager may still be waiting for the program to complete a resize.
bool announcesResizes(const X11Connection& connection, xcb_window_t window) {
    constexpr std::uint32_t protocolWords = 64;
    const X11Atoms& atoms = connection.atoms();
    const auto reply = ownReply(xcb_get_property_reply(
        connection.xcb(),
        xcb_get_property(connection.xcb(), 0, window, atoms.wmProtocols, XCB_ATOM_ATOM, 0, protocolWords),
        nullptr));
    const auto protocols = PropertyValues::numbers(reply, XCB_ATOM_ATOM);
    return std::ranges::find(protocols, atoms.netWmSyncRequest) != protocols.end();
}

} // namespace

WindowMove::WindowMove(X11Desk& desk, xcb_window_t window, WindowMarks::Mark mark)
    : m_desk(desk), m_connection(*desk.connection), m_window(window), m_mark(mark),
      m_deadline(std::chrono::steady_clock::now() + limit) {}

bool WindowMove::to(const FrameTarget& target) {
    const auto before = look();
    if (!before) {
        return false;
    }
    if (FrameArithmetic::isAt(target, frameOf(*before))) {
        return true;
    }
    const WindowManager windowManager = m_desk.windowManager;
    if (before->traits.isFullscreen || !windowManager.moves) {
        return false;
    }
    return before->traits.isMaximized() ? moveMaximized(target, *before) : moveOrdinary(target, *before);
}

std::optional<WindowFacts> WindowMove::look() const {
    auto facts = WindowQuery(m_connection, m_window, WindowScope::placement).collect();
    if (!facts || !m_desk.marks.isSame(m_window, facts->isMarked, m_mark)) {
        return std::nullopt;
    }
    return facts;
}

std::optional<WindowFacts> WindowMove::lookAfterFence(const IsDone& isDone) {
    const WindowManager windowManager = m_desk.windowManager;
    if (!windowManager.answersFences) {
        return waitUntil(isDone);
    }
    // Without a reply, a look is the best we can do.
    std::ignore = m_desk.fence.awaitWhileBusy(m_deadline);
    return look();
}

std::optional<WindowFacts> WindowMove::waitUntil(const IsDone& isDone) {
    WindowChangeWatch watch(*m_desk.connection);
    // Queries and event selections use different connections, so wait for the selection to take effect.
    m_connection.synchronize();
    auto facts = look();
    while (facts && !isDone(*facts) && watch.await(m_deadline)) {
        facts = look();
    }
    return facts;
}

WindowChangeWatch::Arrival WindowMove::arrival(const MoveResize& request, const WindowFacts& facts) const {
    WindowChangeWatch::Arrival expected{.outerArea = FrameArithmetic::outerArea(request, facts.parts),
                                        .client = m_window,
                                        .holder = facts.parent,
                                        .clientSize = std::nullopt};
    if (request.width && request.height) {
        expected.clientSize = {static_cast<double>(*request.width), static_cast<double>(*request.height)};
    }
    return expected;
}

bool WindowMove::moveOrdinary(const FrameTarget& target, const WindowFacts& before) {
    const IsDone hasArrived = [&](const WindowFacts& facts) {
        return FrameArithmetic::isAt(target, frameOf(facts));
    };
    constexpr int attempts = 2;
    std::optional<WindowFacts> facts = before;
    for (int attempt = 0; attempt < attempts && std::chrono::steady_clock::now() < m_deadline; ++attempt) {
        const auto request = FrameArithmetic::request(target, facts->parts);
        WindowChangeWatch watch(*m_desk.connection, arrival(request, *facts));
        ClientMessage::moveResize(m_connection, m_window, request);
        xcb_flush(m_connection.xcb());
        const auto sighting = watch.awaitWhileBusy(usualDelay, m_deadline);
        if (sighting == WindowChangeWatch::Sighting::certain) {
            return true;
        }
        facts = sighting == WindowChangeWatch::Sighting::likely ? look() : std::nullopt;
        if (sighting == WindowChangeWatch::Sighting::none || (facts && !hasArrived(*facts))) {
            facts = lookAfterFence(hasArrived);
        }
        if (!facts || hasArrived(*facts)) {
            return facts.has_value();
        }
    }
    const auto hints = sizeHints();
    if (hints && isAsCloseAsItGets(target, *facts, *hints)) {
        return true;
    }
    if (target.size && announcesResizes(m_connection, m_window)) {
        facts = waitUntil(hasArrived);
    }
    return facts && frameOf(*facts) != frameOf(before);
}

bool WindowMove::moveMaximized(const FrameTarget& target, WindowFacts before) {
    if (isMaximizedAt(target, before)) {
        return true;
    }
    const IsDone isThere = [&](const WindowFacts& facts) { return isMaximizedAt(target, facts); };
    if (FrameArithmetic::fillsMonitor(target, monitors(m_connection))) {
        askToMoveMaximized(target, before);
        const auto after = lookAfterFence(isThere);
        if (!after || isThere(*after)) {
            return after.has_value();
        }
        before = *after;
    }
    ClientMessage::setMaximized(m_connection, m_window, ClientMessage::Maximized::no,
                                before.traits.isMaximizedHorizontally, before.traits.isMaximizedVertically);
    // The extents of an unmaximised window are known only once it is unmaximised.
    const auto ordinary =
        lookAfterFence([](const WindowFacts& facts) { return !facts.traits.isMaximized(); });
    if (!ordinary) {
        return false;
    }
    return FrameArithmetic::isAt(target, frameOf(*ordinary)) || moveOrdinary(target, *ordinary);
}

// Sends all three requests together, so that the window keeps its unmaximised size.
void WindowMove::askToMoveMaximized(const FrameTarget& target, const WindowFacts& before) {
    const bool horizontally = before.traits.isMaximizedHorizontally;
    const bool vertically = before.traits.isMaximizedVertically;
    MoveResize request = FrameArithmetic::request(target, before.parts);
    if (horizontally) {
        request.width.reset();
    }
    if (vertically) {
        request.height.reset();
    }
    using enum ClientMessage::Maximized;
    ClientMessage::setMaximized(m_connection, m_window, no, horizontally, vertically);
    ClientMessage::moveResize(m_connection, m_window, request);
    ClientMessage::setMaximized(m_connection, m_window, yes, horizontally, vertically);
}

std::optional<SizeHints> WindowMove::sizeHints() const {
    xcb_size_hints_t read{};
    const auto cookie = xcb_icccm_get_wm_normal_hints(m_connection.xcb(), m_window);
    if (xcb_icccm_get_wm_normal_hints_reply(m_connection.xcb(), cookie, &read, nullptr) == 0) {
        return std::nullopt;
    }
    const auto says = [&](std::uint32_t flag) { return (read.flags & flag) != 0; };
    SizeHints hints;
    if (says(XCB_ICCCM_SIZE_HINT_P_MIN_SIZE)) {
        hints.minWidth = read.min_width;
        hints.minHeight = read.min_height;
    }
    if (says(XCB_ICCCM_SIZE_HINT_P_MAX_SIZE)) {
        hints.maxWidth = read.max_width;
        hints.maxHeight = read.max_height;
    }
    if (says(XCB_ICCCM_SIZE_HINT_P_RESIZE_INC)) {
        hints.widthIncrement = read.width_inc;
        hints.heightIncrement = read.height_inc;
    }
    if (says(XCB_ICCCM_SIZE_HINT_BASE_SIZE)) {
        hints.baseWidth = read.base_width;
        hints.baseHeight = read.base_height;
    }
    hints.hasAspect = says(XCB_ICCCM_SIZE_HINT_P_ASPECT);
    return hints;
}

} // namespace vantrel
