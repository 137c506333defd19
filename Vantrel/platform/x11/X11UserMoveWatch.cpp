#include "Vantrel/platform/x11/X11UserMoveWatch.h"

#include "Vantrel/platform/x11/XcbReply.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <tuple>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::seconds limit(1);

// No client is nested deeper in its frame.
constexpr int deepest = 8;

// The child of the root that contains the window; none if it is gone.
std::optional<xcb_window_t> topLevel(const X11Connection& connection, xcb_window_t window) {
    for (int depth = 0; depth < deepest; ++depth) {
        const auto tree = ownReply(xcb_query_tree_reply(
            connection.queryConnection(), xcb_query_tree(connection.queryConnection(), window), nullptr));
        if (!tree) {
            return std::nullopt;
        }
        if (tree->parent == connection.root()) {
            return window;
        }
        window = tree->parent;
    }
    return std::nullopt;
}

// Takes an xcb_get_geometry_reply_t or xcb_configure_notify_event_t of a child of the root.
template <typename Geometry>
Rect areaOf(const Geometry& geometry) {
    return {{static_cast<double>(geometry.x), static_cast<double>(geometry.y)},
            {static_cast<double>(geometry.width), static_cast<double>(geometry.height)}};
}

UserMoveEvidence::Time now() {
    return std::chrono::steady_clock::now();
}

} // namespace

std::unique_ptr<X11UserMoveWatch> X11UserMoveWatch::begin(std::shared_ptr<X11Context> desk,
                                                          xcb_window_t client) {
    const X11Connection& connection = *desk->connection;
    const auto frame = topLevel(connection, client);
    if (!frame) {
        return nullptr;
    }
    const auto geometry = ownReply(xcb_get_geometry_reply(
        connection.queryConnection(), xcb_get_geometry(connection.queryConnection(), *frame), nullptr));
    if (!geometry) {
        return nullptr;
    }
    return std::unique_ptr<X11UserMoveWatch>(
        new X11UserMoveWatch(std::move(desk), client, *frame, areaOf(*geometry)));
}

X11UserMoveWatch::X11UserMoveWatch(std::shared_ptr<X11Context> desk, xcb_window_t client, xcb_window_t frame,
                                   const Rect& area)
    : m_desk(std::move(desk)), m_client(client), m_frame(frame), m_evidence(area), m_loneMoves(now()) {
    X11Connection& connection = *m_desk->connection;
    m_focusIn = connection.onEvent(XCB_FOCUS_IN, [this](const xcb_generic_event_t& event) {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        noticeFocus(focus, focus.mode == XCB_NOTIFY_MODE_WHILE_GRABBED);
    });
    m_focusOut = connection.onEvent(XCB_FOCUS_OUT, [this](const xcb_generic_event_t& event) {
        const auto& focus = reinterpret_cast<const xcb_focus_out_event_t&>(event);
        noticeFocus(focus, focus.mode == XCB_NOTIFY_MODE_GRAB);
    });
    m_moves = connection.onEvent(XCB_CONFIGURE_NOTIFY, [this](const xcb_generic_event_t& event) {
        noticeMove(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
    });
    m_requests = connection.onEvent(XCB_CLIENT_MESSAGE, [this](const xcb_generic_event_t& event) {
        noticeRequest(reinterpret_cast<const xcb_client_message_event_t&>(event));
    });
    m_focusSelection = connection.selectEvents(client, XCB_EVENT_MASK_FOCUS_CHANGE);
    m_moveSelection = connection.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    connection.synchronize();
}

X11UserMoveWatch::~X11UserMoveWatch() {
    m_focusIn.reset();
    m_focusOut.reset();
    m_moves.reset();
    m_requests.reset();
    if (m_pointer) {
        xcb_discard_reply(m_desk->connection->queryConnection(), m_pointer->sequence);
    }
}

void X11UserMoveWatch::noticeFocus(const xcb_focus_in_event_t& event, bool isGrab) {
    // A grab by a window inside the client is the program's own doing.
    if (event.event == m_client && event.detail != XCB_NOTIFY_DETAIL_INFERIOR) {
        const std::lock_guard lock(m_mutex);
        m_evidence.noteFocus(isGrab ? UserMoveEvidence::Focus::grabbed : UserMoveEvidence::Focus::other,
                             now());
    }
}

void X11UserMoveWatch::noticeMove(const xcb_configure_notify_event_t& event) {
    const X11Connection& connection = *m_desk->connection;
    if (event.event != connection.root()) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    if (event.window != m_frame) {
        // The fence moves windows of our own.
        const xcb_setup_t& setup = *xcb_get_setup(connection.xcb());
        if ((event.window & ~setup.resource_id_mask) != setup.resource_id_base) {
            m_loneMoves.noteOther(now());
        }
        return;
    }
    if (m_evidence.noteArea(areaOf(event), now()) != UserMoveEvidence::Mover::unknown) {
        return;
    }
    m_loneMoves.noteMove(now(), m_desk->lastOwnMoves);
    takePointer();
    if (!m_pointer) {
        m_pointer = xcb_query_pointer(connection.queryConnection(), connection.root());
        xcb_flush(connection.queryConnection());
    }
}

void X11UserMoveWatch::noticeRequest(const xcb_client_message_event_t& message) {
    const X11Atoms& atoms = m_desk->connection->atoms();
    if (message.window != m_client) {
        return;
    }
    // Other states, such as a demand for attention, leave the window in its place.
    const std::array placing{atoms.netWmStateMaximizedHorz, atoms.netWmStateMaximizedVert,
                             atoms.netWmStateFullscreen, atoms.netWmStateShaded};
    const auto isPlacing = [&](xcb_atom_t state) {
        return std::ranges::find(placing, state) != placing.end();
    };
    if (message.type == atoms.netMoveresizeWindow || message.type == atoms.netWmDesktop ||
        message.type == atoms.wmChangeState ||
        (message.type == atoms.netWmState &&
         (isPlacing(message.data.data32[1]) || isPlacing(message.data.data32[2])))) {
        m_isRequested = true;
    }
}

void X11UserMoveWatch::takePointer() {
    if (!m_pointer) {
        return;
    }
    void* answer = nullptr;
    xcb_generic_error_t* error = nullptr;
    if (xcb_poll_for_reply(m_desk->connection->queryConnection(), m_pointer->sequence, &answer, &error) ==
        0) {
        return;
    }
    m_pointer.reset();
    std::free(error);
    const auto pointer = ownReply(static_cast<xcb_query_pointer_reply_t*>(answer));
    constexpr unsigned anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    if (pointer && (pointer->mask & anyButton) != 0 && pointer->child == m_frame) {
        m_evidence.notePressedOver();
    }
}

bool X11UserMoveWatch::hasSeenRequest() const {
    const std::lock_guard lock(m_mutex);
    return m_isRequested || m_loneMoves.isSeen(now());
}

bool X11UserMoveWatch::hasSeenUser() {
    const X11Connection& connection = *m_desk->connection;
    // The fence's reply is an event that comes after all others.
    std::ignore = m_desk->fence.await(now() + limit);
    // Wait for a pointer query that may be in flight.
    std::ignore = ownReply(xcb_get_input_focus_reply(
        connection.queryConnection(), xcb_get_input_focus(connection.queryConnection()), nullptr));
    const std::lock_guard lock(m_mutex);
    takePointer();
    return m_evidence.isUsers();
}

} // namespace vantrel
