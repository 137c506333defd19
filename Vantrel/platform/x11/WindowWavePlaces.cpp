// The part of a wave that changes states and desktops. Window managers ignore moves of full-screen windows,
// and of maximised ones in part, so such a window leaves its state, moves, and takes its state again.
#include "Vantrel/platform/x11/ClientMessage.h"
#include "Vantrel/platform/x11/WindowWave.h"

#include <algorithm>
#include <iterator>

namespace vantrel {

namespace {

using enum ClientMessage::Setting;

std::optional<std::int64_t> desktopOf(const WindowFacts& facts) {
    return facts.desktop && *facts.desktop != allDesktops ? facts.desktop : std::nullopt;
}

PlaceStates statesOf(const WindowFacts& facts) {
    PlaceStates states = facts.traits.placeStates();
    states.isOnAllDesktops = facts.desktop == allDesktops;
    return states;
}

// Whether a window that has left its state can take the new one where it is: it will fill its monitor, which
// is the right one, and nothing better is known about its ordinary place.
bool isOnItsMonitor(const FrameTarget& target, const PlaceTarget& place, const WindowFacts& facts) {
    const PlaceStates& states = place.states;
    const bool fills =
        states.isFullscreen || (states.isMaximizedHorizontally && states.isMaximizedVertically);
    return fills && !place.normalFrame && target.position && target.size &&
           !facts.traits.placeStates().isStretched() &&
           Rect{*target.position, *target.size}.contains(facts.frame().center());
}

// Where a window that shall be maximised or full screen at `target` stands as an ordinary one: on the same
// monitor, and in the directions that stay ordinary at the target itself. What is absent stays as it is.
FrameTarget normalTarget(const FrameTarget& target, const PlaceTarget& place, const Rect& current) {
    const bool isFree = place.states.isFullscreen;
    const bool isWide = isFree || place.states.isMaximizedHorizontally;
    const bool isHigh = isFree || place.states.isMaximizedVertically;
    const Rect area{target.position.value_or(current.origin), target.size.value_or(current.size)};
    const bool knowsNormal = place.normalFrame && area.contains(place.normalFrame->center());
    const Rect normal = knowsNormal ? *place.normalFrame : Rect{area.origin, current.size};
    FrameTarget result{.position = Point{isWide ? normal.origin.x : area.origin.x,
                                         isHigh ? normal.origin.y : area.origin.y}};
    if (!isWide || !isHigh || knowsNormal) {
        result.size = Size{isWide ? normal.size.width : area.size.width,
                           isHigh ? normal.size.height : area.size.height};
    }
    return result;
}

} // namespace

bool WindowWave::hasPlace(const Move& move) {
    return !move.place || move.place->isReached(statesOf(*move.facts), desktopOf(*move.facts));
}

WindowWave::Moves WindowWave::beginPlaces(const Moves& moves) {
    Moves leaving;
    for (Move* const move : moves) {
        const PlaceTarget& place = *move->place;
        const auto desktop = place.states.isOnAllDesktops ? allDesktops
                             : place.desktop              ? static_cast<std::uint32_t>(*place.desktop)
                                                          : move->facts->desktop.value_or(allDesktops);
        if (move->facts->desktop && desktop != *move->facts->desktop) {
            ClientMessage::setDesktop(m_connection, move->window.window, desktop);
        }
        if (move->facts->traits.isFullscreen && !place.states.isFullscreen) {
            ClientMessage::setState(m_connection, move->window.window, remove,
                                    m_connection.atoms().netWmStateFullscreen);
            leaving.push_back(move);
        }
    }
    xcb_flush(m_connection.xcb());
    // The borders of an ordinary window are known only once it is one.
    lookAfterFence(leaving);
    Moves stretched;
    Moves stepwise;
    Moves others;
    for (Move* const move : moves) {
        if (!move->facts || m_permit.isRevoked()) {
            continue;
        }
        if (move->place->states.isStretched()) {
            // xfwm4 4.18 returns from full screen to where the window was before it last left it at once.
            const bool isFullscreen = move->place->states.isFullscreen || move->facts->traits.isFullscreen;
            // Where it is as an ordinary window must be seen, unless it is known.
            (isFullscreen || !move->place->normalFrame ? stepwise : stretched).push_back(move);
        } else if (FrameArithmetic::isAt(move->target, move->facts->frame())) {
            move->isTaken = true;
        } else if (!move->facts->traits.isFullscreen) {
            others.push_back(move);
        }
    }
    std::ranges::copy(stretch(std::move(stretched), Pace::atOnce), std::back_inserter(stepwise));
    for (Move* const move : stretch(std::move(stepwise), Pace::stepByStep)) {
        // It has changed, even if it did not arrive.
        move->isTaken = true;
    }
    return others;
}

WindowWave::Moves WindowWave::stretch(Moves moves, Pace pace) {
    const auto isThere = [](const Move& move) {
        const PlaceStates& wanted = move.place->states;
        const WindowTraits& traits = move.facts->traits;
        return wanted.isFullscreen == traits.isFullscreen &&
               (wanted.isFullscreen || (wanted.isMaximizedHorizontally == traits.isMaximizedHorizontally &&
                                        wanted.isMaximizedVertically == traits.isMaximizedVertically)) &&
               FrameArithmetic::isMaximizedAt(move.target, move.facts->parts);
    };
    const auto takeOut = [&] {
        std::erase_if(moves, [&](Move* move) {
            move->isTaken = move->isTaken || (move->facts && isThere(*move));
            return !move->facts || move->isTaken || m_permit.isRevoked();
        });
    };
    takeOut();
    std::ranges::for_each(moves, [&](const Move* move) { leaveStates(*move); });
    if (pace == Pace::stepByStep && !moves.empty()) {
        xcb_flush(m_connection.xcb());
        lookAfterFence(moves);
        std::erase_if(moves, [](const Move* move) { return !move->facts; });
    }
    std::ranges::for_each(moves, [&](const Move* move) { askForNormalFrame(*move); });
    if (pace == Pace::stepByStep && !moves.empty()) {
        xcb_flush(m_connection.xcb());
        lookAfterFence(moves);
    }
    std::ranges::for_each(moves, [&](const Move* move) { enterStates(*move); });
    xcb_flush(m_connection.xcb());
    lookAfterFence(moves);
    takeOut();
    return moves;
}

void WindowWave::leaveStates(const Move& move) {
    const WindowTraits& traits = move.facts->traits;
    const xcb_window_t window = move.window.window;
    if (traits.isFullscreen) {
        ClientMessage::setState(m_connection, window, remove, m_connection.atoms().netWmStateFullscreen);
    }
    ClientMessage::setMaximized(m_connection, window, remove, traits.isMaximizedHorizontally,
                                traits.isMaximizedVertically);
}

void WindowWave::askForNormalFrame(const Move& move) {
    if (isOnItsMonitor(move.target, *move.place, *move.facts)) {
        return;
    }
    const FrameTarget normal = normalTarget(move.target, *move.place, move.facts->frame());
    MoveResize request = FrameArithmetic::request(normal, move.facts->parts);
    if (!normal.size) {
        request.width.reset();
        request.height.reset();
    }
    ClientMessage::moveResize(m_connection, move.window.window, request);
}

void WindowWave::enterStates(const Move& move) {
    const PlaceStates& wanted = move.place->states;
    const xcb_window_t window = move.window.window;
    ClientMessage::setMaximized(m_connection, window, add, wanted.isMaximizedHorizontally,
                                wanted.isMaximizedVertically);
    if (wanted.isFullscreen) {
        ClientMessage::setState(m_connection, window, add, m_connection.atoms().netWmStateFullscreen);
    }
}

void WindowWave::finishPlaces(const Moves& moves) {
    look(moves, WindowScope::placement);
    Moves changed;
    for (Move* const move : moves) {
        if (!move->facts || m_permit.isRevoked() || hasPlace(*move)) {
            continue;
        }
        const PlaceStates& wanted = move->place->states;
        const WindowTraits& traits = move->facts->traits;
        const xcb_window_t window = move->window.window;
        if (wanted.isAbove && !traits.isAbove) {
            ClientMessage::setState(m_connection, window, add, m_connection.atoms().netWmStateAbove);
        }
        if (wanted.isShaded && !traits.isShaded) {
            ClientMessage::setState(m_connection, window, add, m_connection.atoms().netWmStateShaded);
        }
        if (wanted.isMinimized && !traits.isMinimized()) {
            ClientMessage::changeState(m_connection, window, ClientMessage::WmState::iconic);
        } else if (!wanted.isMinimized && traits.isMinimized()) {
            ClientMessage::show(m_connection, window);
        }
        changed.push_back(move);
    }
    xcb_flush(m_connection.xcb());
    lookAfterFence(changed);
    Moves strayed;
    for (Move* const move : moves) {
        if (move->facts && !move->place->states.isStretched() && !move->facts->traits.isMinimized() &&
            !FrameArithmetic::isAt(move->target, move->facts->frame()) &&
            std::ranges::find(changed, move) != changed.end()) {
            // A window that is shown again may be placed by the window manager.
            strayed.push_back(move);
        }
    }
    moveOrdinary(strayed);
    for (Move* const move : moves) {
        move->hasPlace = move->facts && hasPlace(*move);
        move->isTaken = move->isTaken || move->hasPlace;
    }
}

} // namespace vantrel
