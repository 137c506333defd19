#include "Vantrel/platform/x11/WindowWave.h"

#include "Vantrel/platform/x11/ClientMessage.h"
#include "Vantrel/platform/x11/MonitorQuery.h"
#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/WindowQuery.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <deque>
#include <iterator>
#include <tuple>
#include <xcb/xcb_icccm.h>

namespace vantrel {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds limit(1);
// What a slow window manager needs for one more window.
constexpr std::chrono::milliseconds limitPerWindow(50);
constexpr std::chrono::seconds longestLimit(10);

// Usually, windows are seen to arrive. A fence costs openbox half as much as a move, so it is sent only once
// no window has moved for this long.
constexpr std::chrono::milliseconds usualDelay(50);

std::vector<Rect> monitors(const X11Connection& connection) {
    std::vector<Rect> areas;
    for (const auto& monitor : MonitorQuery::read(connection).value_or(std::vector<MonitorReading>{})) {
        areas.push_back(monitor.area);
    }
    return areas;
}

bool isFinite(const FrameTarget& target) {
    const auto& [position, size] = target;
    return (!position || (std::isfinite(position->x) && std::isfinite(position->y))) &&
           (!size || (std::isfinite(size->width) && std::isfinite(size->height)));
}

// Whether a window at its position has a size that its program cannot bring closer to the requested one.
bool isAsCloseAsItGets(const FrameTarget& target, const WindowFacts& facts, const SizeHints& hints) {
    const auto request = FrameArithmetic::request(target, facts.parts);
    const Size actual = facts.parts.client.size;
    return FrameArithmetic::isAt({.position = target.position}, facts.frame()) &&
           hints.explainWidth(request.width.value_or(0), actual.width) &&
           hints.explainHeight(request.height.value_or(0), actual.height);
}

MoveResize withSize(MoveResize request, const WindowFacts& facts) {
    const Size size = facts.parts.client.size;
    request.width = request.width.value_or(static_cast<std::uint32_t>(size.width));
    request.height = request.height.value_or(static_cast<std::uint32_t>(size.height));
    return request;
}

// Whether the window manager may still be waiting for the program to follow an earlier resize.
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

SizeHints decode(const xcb_size_hints_t& read) {
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

} // namespace

WindowWave::WindowWave(X11Context& context, std::span<const WindowOrder> orders, const MovePermit& permit)
    : m_context(context), m_connection(*context.connection), m_permit(permit) {
    for (const WindowOrder& order : orders) {
        m_moves.push_back(
            {.window = X11Window::of(order.window), .target = order.target, .place = order.place});
    }
}

std::vector<WindowOutcome> WindowWave::run() {
    Moves wanted;
    for (Move& move : m_moves) {
        if (move.target != FrameTarget{} && isFinite(move.target) && !m_permit.isRevoked()) {
            wanted.push_back(&move);
        }
    }
    look(wanted, WindowScope::placement);
    const WindowManager windowManager = m_context.windowManager;
    if (windowManager.tiles) {
        noteTiled(wanted);
        std::erase_if(wanted, &Move::isTiled);
    }
    Moves places;
    Moves others;
    for (Move* const move : wanted) {
        if (!move->facts) {
            continue;
        }
        move->hasPlace = hasPlace(*move);
        if (FrameArithmetic::isAt(move->target, move->facts->frame()) && move->hasPlace) {
            move->isTaken = true;
        } else if (windowManager.moves && move->place) {
            places.push_back(move);
        } else if (windowManager.moves && !move->facts->traits.isFullscreen) {
            others.push_back(move);
        }
    }
    if (!places.empty() || !others.empty()) {
        m_permit.noteUse();
        std::ranges::copy(beginPlaces(places), std::back_inserter(others));
        Moves maximized;
        Moves ordinary;
        for (Move* const move : others) {
            (move->facts->traits.isMaximized() ? maximized : ordinary).push_back(move);
        }
        std::ranges::copy(moveMaximized(maximized), std::back_inserter(ordinary));
        moveOrdinary(ordinary);
        finishPlaces(places);
    }
    Moves taken;
    std::ranges::copy_if(wanted, std::back_inserter(taken), &Move::isTaken);
    look(taken, WindowScope::frame);
    std::vector<WindowOutcome> outcomes;
    for (const Move& move : m_moves) {
        outcomes.push_back({.isTaken = move.isTaken,
                            .isTiled = move.isTiled,
                            .frame = move.isTaken && move.facts && !m_permit.isRevoked()
                                         ? std::optional(move.facts->frame())
                                         : std::nullopt,
                            .hasPlace = !move.place || move.hasPlace});
    }
    return outcomes;
}

void WindowWave::look(const Moves& moves, WindowScope scope) {
    m_context.lastOwnMoves = steady_clock::now();
    std::vector<WindowQuery> queries;
    queries.reserve(moves.size());
    for (const Move* const move : moves) {
        queries.emplace_back(m_connection, move->window.window, scope);
    }
    xcb_flush(m_connection.queryConnection());
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const auto& [window, mark] = moves[i]->window;
        moves[i]->facts = queries[i].collect();
        if (moves[i]->facts && !m_context.marks.isSame(window, moves[i]->facts->isMarked, mark)) {
            moves[i]->facts.reset();
        }
    }
}

void WindowWave::noteTiled(const Moves& moves) {
    xcb_connection_t* const xcb = m_connection.queryConnection();
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(moves.size());
    for (const Move* const move : moves) {
        cookies.push_back(xcb_get_property(xcb, 0, move->window.window, m_connection.atoms().i3FloatingWindow,
                                           XCB_ATOM_CARDINAL, 0, 1));
    }
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const auto reply = ownReply(xcb_get_property_reply(xcb, cookies[i], nullptr));
        moves[i]->isTiled =
            moves[i]->facts && PropertyValues::number(reply, XCB_ATOM_CARDINAL).value_or(0) == 0;
    }
}

steady_clock::time_point WindowWave::deadline() const {
    return steady_clock::now() +
           std::min<steady_clock::duration>(limit + limitPerWindow * std::ssize(m_moves), longestLimit);
}

void WindowWave::lookAfterFence(const Moves& moves) {
    if (moves.empty()) {
        return;
    }
    // Look even if the fence times out.
    m_isWindowManagerStuck = !m_context.fence.awaitWhileBusy(deadline());
    look(moves, WindowScope::placement);
}

void WindowWave::lookUntil(const Moves& moves, const IsDone& isDone) {
    WindowChangeWatch watch(*m_context.connection);
    // Events and queries use different connections; without this the first look could come before the
    // selection of events.
    m_connection.synchronize();
    const auto isWaitedFor = [&](const Move* move) { return move->facts && !isDone(*move); };
    look(moves, WindowScope::placement);
    const auto end = deadline();
    while (std::ranges::any_of(moves, isWaitedFor) && watch.await(end)) {
        look(moves, WindowScope::placement);
    }
}

WindowChangeWatch::Arrival WindowWave::arrival(const MoveResize& request, const Move& move) const {
    WindowChangeWatch::Arrival expected{.outerArea = FrameArithmetic::outerArea(request, move.facts->parts),
                                        .client = move.window.window,
                                        .holder = move.facts->parent,
                                        .clientSize = std::nullopt};
    if (request.width && request.height) {
        expected.clientSize = {static_cast<double>(*request.width), static_cast<double>(*request.height)};
    }
    return expected;
}

WindowWave::Moves WindowWave::moveMaximized(const Moves& moves) {
    if (moves.empty()) {
        return {};
    }
    const auto isThere = [](const Move& move) {
        return FrameArithmetic::isMaximizedAt(move.target, move.facts->parts);
    };
    const auto areas = monitors(m_connection);
    Moves asked;
    Moves others;
    for (Move* const move : moves) {
        if (isThere(*move)) {
            move->isTaken = true;
        } else if (FrameArithmetic::fillsMonitor(move->target, areas)) {
            askToMoveMaximized(*move);
            asked.push_back(move);
        } else {
            others.push_back(move);
        }
    }
    xcb_flush(m_connection.xcb());
    lookAfterFence(asked);
    for (Move* const move : asked) {
        if (move->facts && isThere(*move)) {
            move->isTaken = true;
        } else if (move->facts) {
            others.push_back(move);
        }
    }
    if (m_permit.isRevoked() || m_isWindowManagerStuck) {
        return {};
    }
    for (const Move* const move : others) {
        const WindowTraits& traits = move->facts->traits;
        ClientMessage::setMaximized(m_connection, move->window.window, ClientMessage::Setting::remove,
                                    traits.isMaximizedHorizontally, traits.isMaximizedVertically);
    }
    xcb_flush(m_connection.xcb());
    // The borders of an ordinary window are known only once it is one.
    lookAfterFence(others);
    std::erase_if(others, [](Move* move) {
        move->isTaken = move->facts && FrameArithmetic::isAt(move->target, move->facts->frame());
        return !move->facts || move->isTaken;
    });
    return others;
}

// In one go, so that the window keeps its size from before it was maximised.
void WindowWave::askToMoveMaximized(const Move& move) {
    const bool horizontally = move.facts->traits.isMaximizedHorizontally;
    const bool vertically = move.facts->traits.isMaximizedVertically;
    MoveResize request = FrameArithmetic::request(move.target, move.facts->parts);
    if (horizontally) {
        request.width.reset();
    }
    if (vertically) {
        request.height.reset();
    }
    using enum ClientMessage::Setting;
    const xcb_window_t window = move.window.window;
    ClientMessage::setMaximized(m_connection, window, remove, horizontally, vertically);
    ClientMessage::moveResize(m_connection, window, request);
    ClientMessage::setMaximized(m_connection, window, add, horizontally, vertically);
}

void WindowWave::moveOrdinary(Moves moves) {
    constexpr int attempts = 2;
    for (Move* const move : moves) {
        move->from = move->facts->frame();
    }
    for (int attempt = 0; attempt < attempts && !moves.empty() && !m_isWindowManagerStuck; ++attempt) {
        moves = askAndLook(moves);
    }
    const auto hints = sizeHints(moves);
    Moves slow;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        Move& move = *moves[i];
        if (hints[i] && isAsCloseAsItGets(move.target, *move.facts, *hints[i])) {
            move.isTaken = true;
        } else if (move.target.size && announcesResizes(m_connection, move.window.window)) {
            slow.push_back(&move);
        }
    }
    if (!slow.empty() && !m_isWindowManagerStuck) {
        lookUntil(slow,
                  [](const Move& move) { return FrameArithmetic::isAt(move.target, move.facts->frame()); });
    }
    for (Move* const move : moves) {
        move->isTaken = move->isTaken || (move->facts && move->facts->frame() != move->from);
    }
}

WindowWave::Moves WindowWave::askAndLook(const Moves& moves) {
    const auto hasArrived = [](const Move& move) {
        return FrameArithmetic::isAt(move.target, move.facts->frame());
    };
    const WindowManager windowManager = m_context.windowManager;
    // All requests are in flight before the first is waited for.
    std::deque<WindowChangeWatch> watches;
    Moves asked;
    for (Move* const move : moves) {
        if (m_permit.isRevoked()) {
            break;
        }
        const auto request = FrameArithmetic::request(move->target, move->facts->parts);
        watches.emplace_back(*m_context.connection, arrival(request, *move));
        ClientMessage::moveResize(m_connection, move->window.window,
                                  windowManager.needsSizes ? withSize(request, *move->facts) : request);
        asked.push_back(move);
    }
    xcb_flush(m_connection.xcb());
    const auto end = deadline();
    Moves likely;
    Moves unseen;
    for (std::size_t i = 0; i < asked.size(); ++i) {
        const auto sighting = watches[i].awaitWhileBusy(usualDelay, end);
        if (sighting == WindowChangeWatch::Sighting::certain) {
            asked[i]->isTaken = true;
        } else {
            (sighting == WindowChangeWatch::Sighting::likely ? likely : unseen).push_back(asked[i]);
        }
    }
    look(likely, WindowScope::placement);
    std::ranges::copy_if(likely, std::back_inserter(unseen),
                         [&](const Move* move) { return move->facts && !hasArrived(*move); });
    lookAfterFence(unseen);
    Moves strays;
    for (Move* const move : asked) {
        move->isTaken = move->isTaken || (move->facts && hasArrived(*move));
        if (!move->isTaken && move->facts) {
            strays.push_back(move);
        }
    }
    return strays;
}

std::vector<std::optional<SizeHints>> WindowWave::sizeHints(const Moves& moves) const {
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(moves.size());
    for (const Move* const move : moves) {
        cookies.push_back(xcb_icccm_get_wm_normal_hints(m_connection.xcb(), move->window.window));
    }
    std::vector<std::optional<SizeHints>> result;
    for (const auto& cookie : cookies) {
        xcb_size_hints_t read{};
        const bool isRead =
            xcb_icccm_get_wm_normal_hints_reply(m_connection.xcb(), cookie, &read, nullptr) != 0;
        result.push_back(isRead ? std::optional(decode(read)) : std::nullopt);
    }
    return result;
}

} // namespace vantrel
