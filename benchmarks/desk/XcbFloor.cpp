#include "benchmarks/desk/XcbFloor.h"

#include <poll.h>
#include <span>
#include <stdexcept>
#include <string_view>

namespace vantrel::bench {

namespace {

using tools::Reply;

constexpr std::uint32_t propertyWords = 1024;
constexpr std::uint32_t listWords = 16384;
// openbox 3.6 may sleep although it has already read events; see WindowManagerFence.
constexpr int patienceMilliseconds = 50;
// _NET_MOVERESIZE_WINDOW: gravity NorthWest, x, y, width and height given, from a pager.
constexpr std::uint32_t moveAndResize = 1U | 0xFU << 8U | 2U << 12U;

using Property = Reply<xcb_get_property_reply_t>;

std::span<const std::uint32_t> numbers(const Property& reply) {
    if (!reply || reply->format != 32) {
        return {};
    }
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())), reply->value_len};
}

std::string text(const Property& reply) {
    if (!reply || reply->format != 8) {
        return {};
    }
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
}

// The requests for one window's position.
struct PlaceQuery {
    xcb_get_geometry_cookie_t geometry;
    xcb_translate_coordinates_cookie_t origin;
    xcb_get_property_cookie_t extents;

    [[nodiscard]] Rect collect(xcb_connection_t* xcb) const {
        const Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(xcb, geometry, nullptr));
        const Reply<xcb_translate_coordinates_reply_t> place(
            xcb_translate_coordinates_reply(xcb, origin, nullptr));
        const Property border(xcb_get_property_reply(xcb, extents, nullptr));
        const auto widths = numbers(border);
        if (!size || !place || widths.size() != 4) {
            return {};
        }
        const auto width = [&](std::size_t i) { return static_cast<double>(widths[i]); };
        return {{place->dst_x - width(0), place->dst_y - width(2)},
                {size->width + width(0) + width(1), size->height + width(2) + width(3)}};
    }
};

} // namespace

XcbFloor::XcbFloor(const std::string& display) : m_xcb(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(m_xcb) != 0) {
        xcb_disconnect(m_xcb);
        throw std::runtime_error("The X server " + display + " does not respond.");
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_xcb)).data->root;
    constexpr std::array<std::string_view, atomCount> names{
        "_NET_CLIENT_LIST_STACKING",
        "_NET_MOVERESIZE_WINDOW",
        "_NET_REQUEST_FRAME_EXTENTS",
        "_NET_FRAME_EXTENTS",
        "_GTK_FRAME_EXTENTS",
        "_NET_WM_STATE",
        "_NET_WM_NAME",
        "_NET_WM_WINDOW_TYPE",
        "_NET_WM_DESKTOP",
        "_NET_WM_PID",
        "_GTK_APPLICATION_ID",
        "_KDE_NET_WM_DESKTOP_FILE",
    };
    for (std::size_t i = 0; i < atomCount; ++i) {
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_xcb,
            xcb_intern_atom(m_xcb, 0, static_cast<std::uint16_t>(names.at(i).size()), names.at(i).data()),
            nullptr));
        m_atoms.at(i) = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
    renewFence();
}

XcbFloor::~XcbFloor() {
    xcb_disconnect(m_xcb);
}

xcb_get_property_cookie_t XcbFloor::ask(xcb_window_t window, xcb_atom_t property) const {
    return xcb_get_property(m_xcb, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, propertyWords);
}

void XcbFloor::send(xcb_window_t window, Atom message, const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = m_atoms.at(message);
    for (std::size_t i = 0; i < data.size(); ++i) {
        event.data.data32[i] = data.at(i);
    }
    xcb_send_event(m_xcb, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
}

std::vector<XcbFloor::Window> XcbFloor::capture() {
    const Property list(xcb_get_property_reply(m_xcb,
                                               xcb_get_property(m_xcb, 0, m_root, m_atoms[clientListStacking],
                                                                XCB_GET_PROPERTY_TYPE_ANY, 0, listWords),
                                               nullptr));
    // Requested because these decide whether and how a window is captured; not stored here.
    const std::array deciding{m_atoms[gtkFrameExtents],
                              m_atoms[state],
                              m_atoms[type],
                              m_atoms[desktop],
                              m_atoms[kdeDesktopFile],
                              m_atoms[gtkApplicationId],
                              xcb_atom_t{XCB_ATOM_WM_NAME},
                              xcb_atom_t{XCB_ATOM_WM_TRANSIENT_FOR}};
    struct Query {
        PlaceQuery place;
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_property_cookie_t title;
        xcb_get_property_cookie_t wmClass;
        xcb_get_property_cookie_t pid;
        std::array<xcb_get_property_cookie_t, deciding.size()> others;
    };
    const auto ids = numbers(list);
    std::vector<Query> queries;
    queries.reserve(ids.size());
    for (const auto id : ids) {
        Query query{.place = {xcb_get_geometry(m_xcb, id), xcb_translate_coordinates(m_xcb, id, m_root, 0, 0),
                              ask(id, m_atoms[frameExtents])},
                    .attributes = xcb_get_window_attributes(m_xcb, id),
                    .title = ask(id, m_atoms[netName]),
                    .wmClass = ask(id, XCB_ATOM_WM_CLASS),
                    .pid = ask(id, m_atoms[netPid]),
                    .others = {}};
        for (std::size_t i = 0; i < deciding.size(); ++i) {
            query.others.at(i) = ask(id, deciding.at(i));
        }
        queries.push_back(query);
    }
    xcb_flush(m_xcb);
    std::vector<Window> windows;
    windows.reserve(ids.size());
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const Query& query = queries[i];
        Window window{.id = ids[i], .frame = query.place.collect(m_xcb), .title = {}, .wmClass = {}};
        const Reply<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(m_xcb, query.attributes, nullptr));
        window.title = text(Property(xcb_get_property_reply(m_xcb, query.title, nullptr)));
        window.wmClass = text(Property(xcb_get_property_reply(m_xcb, query.wmClass, nullptr)));
        const Property pid(xcb_get_property_reply(m_xcb, query.pid, nullptr));
        window.pid = numbers(pid).empty() ? 0 : numbers(pid).front();
        for (const auto cookie : query.others) {
            const Property unused(xcb_get_property_reply(m_xcb, cookie, nullptr));
        }
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE) {
            windows.push_back(std::move(window));
        }
    }
    return windows;
}

bool XcbFloor::restore(const Arrangement& arrangement) {
    for (const auto& placement : arrangement) {
        send(placement.window, moveResizeWindow,
             {moveAndResize, static_cast<std::uint32_t>(placement.frame.minX()),
              static_cast<std::uint32_t>(placement.frame.minY()), placement.clientWidth,
              placement.clientHeight});
    }
    awaitWindowManager();
    std::vector<PlaceQuery> queries;
    queries.reserve(arrangement.size());
    for (const auto& placement : arrangement) {
        queries.push_back({xcb_get_geometry(m_xcb, placement.window),
                           xcb_translate_coordinates(m_xcb, placement.window, m_root, 0, 0),
                           ask(placement.window, m_atoms[frameExtents])});
    }
    xcb_flush(m_xcb);
    bool allArrived = true;
    for (std::size_t i = 0; i < arrangement.size(); ++i) {
        allArrived = queries[i].collect(m_xcb) == arrangement[i].frame && allArrived;
    }
    return allArrived;
}

void XcbFloor::renewFence() {
    if (m_fence != XCB_WINDOW_NONE) {
        xcb_destroy_window(m_xcb, m_fence);
    }
    m_fence = xcb_generate_id(m_xcb);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_xcb, XCB_COPY_FROM_PARENT, m_fence, m_root, -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

void XcbFloor::awaitWindowManager() {
    int asked = 0;
    bool isAnswered = false;
    while (!isAnswered) {
        send(m_fence, requestFrameExtents, {});
        xcb_flush(m_xcb);
        ++asked;
        pollfd readable{.fd = xcb_get_file_descriptor(m_xcb), .events = POLLIN, .revents = 0};
        do {
            while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_xcb)}) {
                const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
                isAnswered = isAnswered || ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY &&
                                            change.window == m_fence && change.atom == m_atoms[frameExtents]);
            }
            if (xcb_connection_has_error(m_xcb) != 0) {
                throw std::runtime_error("The X server is gone.");
            }
        } while (!isAnswered && poll(&readable, 1, patienceMilliseconds) > 0);
    }
    if (asked > 1) {
        // The remaining replies must not be mistaken for replies to later requests.
        renewFence();
    }
}

} // namespace vantrel::bench
