#include "Vantrel/platform/x11/X11Desk.h"

#include "Vantrel/platform/x11/ClientMessage.h"
#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/WindowWave.h"
#include "Vantrel/platform/x11/X11DeskReading.h"
#include "Vantrel/platform/x11/X11UserMoveWatch.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace vantrel {

namespace {

constexpr std::chrono::seconds quietLimit(1);
constexpr std::chrono::seconds raiseLimit(1);

// Back to front.
std::vector<xcb_window_t> clientStack(const X11Connection& connection) {
    constexpr std::uint32_t listWords = 16384;
    xcb_connection_t* const xcb = connection.xcb();
    const auto reply = ownReply(xcb_get_property_reply(
        xcb,
        xcb_get_property(xcb, 0, connection.root(), connection.atoms().netClientListStacking, XCB_ATOM_WINDOW,
                         0, listWords),
        nullptr));
    const auto windows = PropertyValues::numbers(reply, XCB_ATOM_WINDOW);
    return {windows.begin(), windows.end()};
}

// The client in front of all others.
xcb_window_t topmost(const X11Connection& connection) {
    const auto stack = clientStack(connection);
    return stack.empty() ? xcb_window_t{XCB_WINDOW_NONE} : stack.back();
}

} // namespace

bool X11Desk::isTrusted() {
    const WindowManager windowManager = m_context->windowManager;
    const bool isTrusted =
        m_context->connection->isConnected() && windowManager.isPresent && windowManager.moves;
    if (!isTrusted) {
        // A capture that ended late may have hidden what the watch has seen.
        m_windowManagerWatch.lookSoon();
    }
    return isTrusted;
}

DeskSnapshot X11Desk::capture(const CaptureFilter& filter) {
    return X11DeskReading(m_context).snapshot(filter);
}

std::vector<std::optional<DeskWindow>> X11Desk::look(std::span<const WindowID> windows) {
    return X11DeskReading::look(*m_context, windows);
}

std::vector<WindowOutcome> X11Desk::arrange(std::span<const WindowOrder> orders, const MovePermit& permit) {
    std::vector<WindowOutcome> outcomes = WindowWave(*m_context, orders, permit).run();
    raise(orders, permit, outcomes);
    restack(orders, permit, outcomes);
    return outcomes;
}

// openbox 3.6 can only put a window in front of all others. So everything from the lowest window that changes
// its place upwards is put there in turn, which leaves the others as they are among themselves.
void X11Desk::restack(std::span<const WindowOrder> orders, const MovePermit& permit,
                      std::vector<WindowOutcome>& outcomes) {
    const bool isWanted =
        std::ranges::any_of(orders, [](const WindowOrder& order) { return order.inFrontOf.has_value(); });
    const WindowManager windowManager = m_context->windowManager;
    if (!isWanted || !windowManager.isPresent || permit.isRevoked()) {
        return;
    }
    const X11Connection& connection = *m_context->connection;
    const auto stack = clientStack(connection);
    auto wanted = stack;
    permit.noteUse();
    for (std::size_t i = 0; i < orders.size(); ++i) {
        if (!orders[i].inFrontOf) {
            continue;
        }
        const xcb_window_t window = X11Window::of(orders[i].window).window;
        const xcb_window_t sibling = X11Window::of(*orders[i].inFrontOf).window;
        const auto found = std::ranges::find(wanted, window);
        if (found == wanted.end() || std::ranges::find(wanted, sibling) == wanted.end()) {
            continue;
        }
        wanted.erase(found);
        wanted.insert(std::next(std::ranges::find(wanted, sibling)), window);
        outcomes[i].isTaken = true;
        if (!windowManager.restacks) {
            ClientMessage::restackAbove(connection, window, sibling);
        }
    }
    if (windowManager.restacks) {
        auto window = std::ranges::mismatch(stack, wanted).in2;
        for (; window != wanted.end(); ++window) {
            ClientMessage::restackOnTop(connection, *window);
        }
    }
    xcb_flush(connection.xcb());
}

void X11Desk::raise(std::span<const WindowOrder> orders, const MovePermit& permit,
                    std::vector<WindowOutcome>& outcomes) {
    const X11Connection& connection = *m_context->connection;
    const WindowManager windowManager = m_context->windowManager;
    std::vector<WindowID> raised;
    for (const WindowOrder& order : orders) {
        if (order.raises) {
            raised.push_back(order.window);
        }
    }
    if (raised.empty() || !windowManager.isPresent) {
        return;
    }
    const auto seen = look(raised);
    std::size_t next = 0;
    for (std::size_t i = 0; i < orders.size(); ++i) {
        if (!orders[i].raises) {
            continue;
        }
        const bool exists = seen[next++].has_value();
        const xcb_window_t window = X11Window::of(orders[i].window).window;
        if (!exists || permit.isRevoked()) {
            continue;
        }
        permit.noteUse();
        if (windowManager.restacks) {
            ClientMessage::restackOnTop(connection, window);
            outcomes[i].isTaken = true;
        } else if (const auto top = topmost(connection); top != window) {
            // xfwm4 focuses a window that is raised without naming the window to put it above.
            ClientMessage::restackAbove(connection, window, top);
            // The next raise depends on the result of this one.
            outcomes[i].isTaken =
                m_context->fence.await(std::chrono::steady_clock::now() + raiseLimit) || outcomes[i].isTaken;
        } else {
            outcomes[i].isTaken = true;
        }
    }
    xcb_flush(connection.xcb());
}

bool X11Desk::awaitQuiet() {
    return m_context->fence.await(std::chrono::steady_clock::now() + quietLimit);
}

std::vector<std::unique_ptr<UserMoveWatch>> X11Desk::watchUserMoves(std::span<const WindowID> windows) {
    const auto seen = look(windows);
    std::vector<std::unique_ptr<UserMoveWatch>> watches(windows.size());
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (seen[i]) {
            watches[i] = X11UserMoveWatch::begin(m_context, X11Window::of(windows[i]).window);
        }
    }
    return watches;
}

} // namespace vantrel
