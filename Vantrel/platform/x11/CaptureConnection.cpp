#include "Vantrel/platform/x11/CaptureConnection.h"

#include "Vantrel/platform/x11/XcbReply.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <xcb/composite.h>

namespace vantrel {

namespace {

// A window as large as two displays of 8K.
constexpr std::size_t mostPixels = std::size_t{7680} * 4320 * 2;

xcb_intern_atom_cookie_t asked(xcb_connection_t* xcb, std::string_view name) {
    return xcb_intern_atom(xcb, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atomOf(xcb_connection_t* xcb, xcb_intern_atom_cookie_t cookie) {
    const auto reply = ownReply(xcb_intern_atom_reply(xcb, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

// 32 bits per pixel, in the order of this machine's bytes, as on every server since true colour.
bool hasUsualPixels(const xcb_setup_t& setup) {
    for (auto format = xcb_setup_pixmap_formats_iterator(&setup); format.rem > 0; xcb_format_next(&format)) {
        if ((format.data->depth == 24 || format.data->depth == 32) && format.data->bits_per_pixel != 32) {
            return false;
        }
    }
    return setup.image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
}

std::vector<std::uint32_t> numbers(const XcbReply<xcb_get_property_reply_t>& reply) {
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* const first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

} // namespace

std::unique_ptr<CaptureConnection> CaptureConnection::open(const std::string& displayName) {
    int number = 0;
    xcb_connection_t* const xcb = xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), &number);
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(xcb));
    if (xcb_connection_has_error(xcb) != 0) {
        xcb_disconnect(xcb);
        return nullptr;
    }
    for (; number > 0 && screens.rem > 1; --number) {
        xcb_screen_next(&screens);
    }
    std::unique_ptr<CaptureConnection> connection(new CaptureConnection(xcb, *screens.data));
    return connection->prepare() ? std::move(connection) : nullptr;
}

CaptureConnection::~CaptureConnection() {
    release();
    // The server undoes the redirections.
    xcb_disconnect(m_xcb);
}

bool CaptureConnection::prepare() {
    for (xcb_extension_t* const each : {&xcb_composite_id, &xcb_damage_id, &xcb_shm_id}) {
        xcb_prefetch_extension_data(m_xcb, each);
    }
    const auto mark = asked(m_xcb, "_VANTREL_WINDOW");
    const auto shadow = asked(m_xcb, "_GTK_FRAME_EXTENTS");
    for (xcb_extension_t* const each : {&xcb_composite_id, &xcb_damage_id, &xcb_shm_id}) {
        const auto* const found = xcb_get_extension_data(m_xcb, each);
        if (found == nullptr || found->present == 0) {
            return false;
        }
    }
    m_firstDamageEvent = xcb_get_extension_data(m_xcb, &xcb_damage_id)->first_event;
    // Pixmaps have names from 0.2 on, and memory is shared by descriptor from 1.2 on.
    const auto composite = xcb_composite_query_version(m_xcb, 0, 4);
    const auto damage = xcb_damage_query_version(m_xcb, 1, 1);
    const auto memory = xcb_shm_query_version(m_xcb);
    const auto compositeReply = ownReply(xcb_composite_query_version_reply(m_xcb, composite, nullptr));
    const auto damageReply = ownReply(xcb_damage_query_version_reply(m_xcb, damage, nullptr));
    const auto memoryReply = ownReply(xcb_shm_query_version_reply(m_xcb, memory, nullptr));
    m_markAtom = atomOf(m_xcb, mark);
    m_shadowAtom = atomOf(m_xcb, shadow);
    return compositeReply && damageReply && memoryReply &&
           (compositeReply->major_version > 0 || compositeReply->minor_version >= 2) &&
           (memoryReply->major_version > 1 || memoryReply->minor_version >= 2) &&
           hasUsualPixels(*xcb_get_setup(m_xcb));
}

xcb_window_t CaptureConnection::topOf(xcb_window_t window) const {
    constexpr int deepest = 16;
    for (int depth = 0; depth < deepest; ++depth) {
        const auto tree = ownReply(xcb_query_tree_reply(m_xcb, xcb_query_tree(m_xcb, window), nullptr));
        if (!tree || tree->parent == XCB_WINDOW_NONE) {
            break;
        }
        if (tree->parent == m_screen.root) {
            return window;
        }
        window = tree->parent;
    }
    return XCB_WINDOW_NONE;
}

void CaptureConnection::watch(const X11Window& window) {
    const xcb_window_t top = topOf(window.window);
    if (top == XCB_WINDOW_NONE || m_watched.contains(window.window)) {
        return;
    }
    const xcb_damage_damage_t damage = xcb_generate_id(m_xcb);
    xcb_composite_redirect_window(m_xcb, top, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    // One event until it is captured, however much it draws.
    xcb_damage_create(m_xcb, damage, window.window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    xcb_flush(m_xcb);
    m_watched[window.window] = {top, damage};
}

void CaptureConnection::forget(const X11Window& window) {
    const auto watched = m_watched.extract(window.window);
    if (!watched.empty()) {
        xcb_damage_destroy(m_xcb, watched.mapped().damage);
        xcb_composite_unredirect_window(m_xcb, watched.mapped().top, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        xcb_flush(m_xcb);
    }
}

std::vector<xcb_window_t> CaptureConnection::takeChanged() {
    std::vector<xcb_window_t> changed;
    // Errors are among the events: of windows that are gone.
    while (const auto event = ownReply(xcb_poll_for_event(m_xcb))) {
        if ((event->response_type & 0x7fU) == m_firstDamageEvent + XCB_DAMAGE_NOTIFY) {
            const auto& notify = reinterpret_cast<const xcb_damage_notify_event_t&>(*event);
            changed.push_back(notify.drawable);
        }
    }
    return changed;
}

std::optional<CaptureConnection::Part> CaptureConnection::partOf(const X11Window& window,
                                                                 xcb_window_t top) const {
    const auto mark = xcb_get_property(m_xcb, 0, window.window, m_markAtom, XCB_ATOM_CARDINAL, 0, 1);
    const auto shadow = xcb_get_property(m_xcb, 0, window.window, m_shadowAtom, XCB_ATOM_CARDINAL, 0, 4);
    const auto client = xcb_get_geometry(m_xcb, window.window);
    const auto frame = xcb_get_geometry(m_xcb, top);
    const auto attributes = xcb_get_window_attributes(m_xcb, window.window);
    const auto place = xcb_translate_coordinates(m_xcb, window.window, top, 0, 0);
    const auto placeReply = ownReply(xcb_translate_coordinates_reply(m_xcb, place, nullptr));
    const auto attributesReply = ownReply(xcb_get_window_attributes_reply(m_xcb, attributes, nullptr));
    const auto frameReply = ownReply(xcb_get_geometry_reply(m_xcb, frame, nullptr));
    const auto clientReply = ownReply(xcb_get_geometry_reply(m_xcb, client, nullptr));
    const auto extents = numbers(ownReply(xcb_get_property_reply(m_xcb, shadow, nullptr)));
    const auto marks = numbers(ownReply(xcb_get_property_reply(m_xcb, mark, nullptr)));
    const bool isUsable = placeReply && attributesReply && frameReply && clientReply &&
                          attributesReply->map_state == XCB_MAP_STATE_VIEWABLE &&
                          (frameReply->depth == 24 || frameReply->depth == 32) &&
                          marks == std::vector<std::uint32_t>{window.mark};
    if (!isUsable) {
        return std::nullopt;
    }
    // The pixmap begins with the border.
    Part part{.x = placeReply->dst_x + frameReply->border_width,
              .y = placeReply->dst_y + frameReply->border_width,
              .width = clientReply->width,
              .height = clientReply->height};
    if (extents.size() == 4 && std::ranges::all_of(extents, [](auto each) { return each < 200; })) {
        const auto at = [&](std::size_t side) { return static_cast<int>(extents[side]); };
        part = {part.x + at(0), part.y + at(2), part.width - at(0) - at(1), part.height - at(2) - at(3)};
    }
    const int right = std::min(part.x + part.width, frameReply->width + 2 * frameReply->border_width);
    const int bottom = std::min(part.y + part.height, frameReply->height + 2 * frameReply->border_width);
    part.x = std::max(part.x, 0);
    part.y = std::max(part.y, 0);
    part.width = right - part.x;
    part.height = bottom - part.y;
    return part.width > 0 && part.height > 0 ? std::optional(part) : std::nullopt;
}

std::optional<WindowPicture> CaptureConnection::capture(const X11Window& window, int longest) {
    const auto watched = m_watched.find(window.window);
    if (watched == m_watched.end()) {
        return std::nullopt;
    }
    const xcb_window_t top = watched->second.top;
    // What is drawn from here on counts as a change again.
    xcb_damage_subtract(m_xcb, watched->second.damage, XCB_NONE, XCB_NONE);
    const auto part = partOf(window, top);
    const auto pixels = part ? static_cast<std::size_t>(part->width) * static_cast<std::size_t>(part->height)
                             : std::size_t{0};
    if (!part || !reserve(pixels)) {
        return std::nullopt;
    }
    const xcb_pixmap_t pixmap = xcb_generate_id(m_xcb);
    xcb_composite_name_window_pixmap(m_xcb, top, pixmap);
    const auto image = xcb_shm_get_image(
        m_xcb, pixmap, static_cast<std::int16_t>(part->x), static_cast<std::int16_t>(part->y),
        static_cast<std::uint16_t>(part->width), static_cast<std::uint16_t>(part->height), ~0U,
        XCB_IMAGE_FORMAT_Z_PIXMAP, m_segment, 0);
    xcb_free_pixmap(m_xcb, pixmap);
    const auto reply = ownReply(xcb_shm_get_image_reply(m_xcb, image, nullptr));
    if (!reply) {
        // It may stand in another frame now, under another window manager.
        forget(window);
        watch(window);
        return std::nullopt;
    }
    return WindowPicture::scaled(m_pixels.first(pixels), part->width, part->height, longest);
}

bool CaptureConnection::reserve(std::size_t pixels) {
    if (pixels <= m_pixels.size()) {
        return true;
    }
    release();
    const std::size_t bytes = pixels * sizeof(std::uint32_t);
    const posix::FileDescriptor memory(pixels <= mostPixels ? memfd_create("vantrel", MFD_CLOEXEC) : -1);
    if (!memory.isOpen() || ftruncate(memory.get(), static_cast<off_t>(bytes)) != 0) {
        return false;
    }
    void* const mapped = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, memory.get(), 0);
    const int passed = mapped == MAP_FAILED ? -1 : dup(memory.get());
    if (passed < 0) {
        if (mapped != MAP_FAILED) {
            munmap(mapped, bytes);
        }
        return false;
    }
    m_pixels = {static_cast<std::uint32_t*>(mapped), pixels};
    m_segment = xcb_generate_id(m_xcb);
    // Closes what it passes. A server elsewhere cannot share memory, and refuses.
    const auto request = xcb_shm_attach_fd_checked(m_xcb, m_segment, passed, 0);
    if (const auto error = ownReply(xcb_request_check(m_xcb, request))) {
        m_segment = XCB_NONE;
        release();
        return false;
    }
    return true;
}

void CaptureConnection::release() {
    if (m_segment != XCB_NONE) {
        xcb_shm_detach(m_xcb, m_segment);
        m_segment = XCB_NONE;
    }
    if (!m_pixels.empty()) {
        munmap(m_pixels.data(), m_pixels.size_bytes());
        m_pixels = {};
    }
}

} // namespace vantrel
