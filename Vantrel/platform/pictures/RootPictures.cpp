#include "Vantrel/platform/pictures/RootPictures.h"

#include "Vantrel/platform/pictures/FittedImage.h"
#include "Vantrel/platform/pictures/PictureFile.h"
#include "Vantrel/platform/pictures/RootPainting.h"
#include "Vantrel/platform/x11/XcbReply.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fmt/format.h>
#include <memory>
#include <utility>

namespace vantrel {

namespace {

// The URL scheme for another program's pixmap. Number 0 is the bare root window.
constexpr std::string_view pixmapScheme = "xpixmap:";
constexpr const char* ownProperty = "_VANTREL_ROOT_PICTURES";
constexpr std::array<const char*, 2> pixmapProperties{"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"};
// In 32-bit words. Longer than any list of paths.
constexpr std::uint32_t longestProperty = 1U << 16;

// The only supported format: 32 bits per pixel with blue in the lowest byte.
constexpr std::uint8_t pixelDepth = 24;

struct Disconnect {
    void operator()(xcb_connection_t* xcb) const { xcb_disconnect(xcb); }
};
using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

// Uses its own connection, because its pixmap must survive when the connection closes.
class RootWindow {
public:
    // Returns null if there is no server or its pixel format is not supported.
    static std::unique_ptr<RootWindow> open() {
        Connection xcb(xcb_connect(nullptr, nullptr));
        if (xcb_connection_has_error(xcb.get()) != 0) {
            return nullptr;
        }
        const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(xcb.get())).data;
        return screen.root_depth == pixelDepth ? std::make_unique<RootWindow>(std::move(xcb), screen)
                                               : nullptr;
    }

    RootWindow(Connection xcb, const xcb_screen_t& screen)
        : m_owned(std::move(xcb)), m_xcb(m_owned.get()), m_screen(screen) {}
    ~RootWindow() { sync(); }
    RootWindow(const RootWindow&) = delete;
    RootWindow& operator=(const RootWindow&) = delete;

    // What is currently shown. If another program painted it, `pixmap` and `base` are the same.
    [[nodiscard]] RootPainting painting() const {
        const xcb_pixmap_t shown = shownPixmap();
        auto noted = RootPainting::parse(property(ownProperty, atom("UTF8_STRING")));
        return shown != XCB_NONE && noted.pixmap == shown
                   ? noted
                   : RootPainting{.pixmap = shown, .base = shown, .pictures = {}};
    }

    // Returns a new pixmap with the content of `old`.
    [[nodiscard]] xcb_pixmap_t copy(xcb_pixmap_t old) const {
        const auto pixmap = xcb_generate_id(m_xcb);
        xcb_create_pixmap(m_xcb, pixelDepth, pixmap, m_screen.root, width(), height());
        copyArea(old, pixmap, {0, 0, width(), height()});
        return pixmap;
    }

    // Sends the image in strips that fit into one request.
    void paint(xcb_pixmap_t pixmap, const QImage& image, std::int16_t x, std::int16_t y) const {
        const auto context = xcb_generate_id(m_xcb);
        xcb_create_gc(m_xcb, context, pixmap, 0, nullptr);
        const auto rowBytes = static_cast<std::uint32_t>(image.width()) * 4;
        const std::uint32_t requestBytes = xcb_get_maximum_request_length(m_xcb) * 4 - 64;
        const int rows = static_cast<int>(std::max<std::uint32_t>(1, requestBytes / rowBytes));
        for (int row = 0; row < image.height(); row += rows) {
            const int count = std::min(rows, image.height() - row);
            xcb_put_image(m_xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context,
                          static_cast<std::uint16_t>(image.width()), static_cast<std::uint16_t>(count), x,
                          static_cast<std::int16_t>(y + row), 0, pixelDepth,
                          rowBytes * static_cast<std::uint32_t>(count), image.constScanLine(row));
        }
        xcb_free_gc(m_xcb, context);
    }

    // Fills the area with black if `from` is none.
    void copyArea(xcb_pixmap_t from, xcb_pixmap_t to, const xcb_rectangle_t& area) const {
        const auto context = xcb_generate_id(m_xcb);
        xcb_create_gc(m_xcb, context, to, XCB_GC_FOREGROUND, &m_screen.black_pixel);
        if (from != XCB_NONE) {
            xcb_copy_area(m_xcb, from, to, context, area.x, area.y, area.x, area.y, area.width, area.height);
        } else {
            xcb_poly_fill_rectangle(m_xcb, to, context, 1, &area);
        }
        xcb_free_gc(m_xcb, context);
    }

    // Whether the pixmap exists and covers the whole screen.
    [[nodiscard]] bool isWhole(xcb_pixmap_t pixmap) const {
        const auto geometry =
            ownReply(xcb_get_geometry_reply(m_xcb, xcb_get_geometry(m_xcb, pixmap), nullptr));
        return geometry && geometry->depth == pixelDepth && geometry->width == width() &&
               geometry->height == height();
    }

    // Shows the pixmap and keeps it alive after this connection closes.
    void show(const RootPainting& painting) const {
        const xcb_pixmap_t pixmap = painting.pixmap;
        for (const char* name : pixmapProperties) {
            xcb_change_property(m_xcb, XCB_PROP_MODE_REPLACE, m_screen.root, atom(name), XCB_ATOM_PIXMAP, 32,
                                1, &pixmap);
        }
        const std::string text = painting.note();
        xcb_change_property(m_xcb, XCB_PROP_MODE_REPLACE, m_screen.root, atom(ownProperty),
                            atom("UTF8_STRING"), 8, static_cast<std::uint32_t>(text.size()), text.data());
        xcb_change_window_attributes(m_xcb, m_screen.root, XCB_CW_BACK_PIXMAP, &pixmap);
        xcb_clear_area(m_xcb, 0, m_screen.root, 0, 0, 0, 0);
        xcb_set_close_down_mode(m_xcb, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    }

    // Clears the root pixmap.
    void clear() const {
        for (const char* name : {pixmapProperties[0], pixmapProperties[1], ownProperty}) {
            xcb_delete_property(m_xcb, m_screen.root, atom(name));
        }
        xcb_change_window_attributes(m_xcb, m_screen.root, XCB_CW_BACK_PIXEL, &m_screen.black_pixel);
        xcb_clear_area(m_xcb, 0, m_screen.root, 0, 0, 0, 0);
    }

    // Frees a pixmap left by an earlier connection of ours.
    void free(xcb_pixmap_t pixmap) const { xcb_kill_client(m_xcb, pixmap); }

private:
    [[nodiscard]] xcb_pixmap_t shownPixmap() const {
        const auto bytes = property(pixmapProperties[0], XCB_ATOM_PIXMAP);
        xcb_pixmap_t pixmap = XCB_NONE;
        if (bytes.size() == sizeof pixmap) {
            std::memcpy(&pixmap, bytes.data(), sizeof pixmap);
        }
        return pixmap != XCB_NONE && isWhole(pixmap) ? pixmap : XCB_NONE;
    }

    // Waits until the server has processed all requests.
    void sync() const {
        static_cast<void>(ownReply(xcb_get_input_focus_reply(m_xcb, xcb_get_input_focus(m_xcb), nullptr)));
    }

    [[nodiscard]] std::uint16_t width() const { return m_screen.width_in_pixels; }
    [[nodiscard]] std::uint16_t height() const { return m_screen.height_in_pixels; }

    [[nodiscard]] xcb_atom_t atom(std::string_view name) const {
        const auto reply = ownReply(xcb_intern_atom_reply(
            m_xcb, xcb_intern_atom(m_xcb, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    [[nodiscard]] std::string property(const char* name, xcb_atom_t type) const {
        const auto reply = ownReply(xcb_get_property_reply(
            m_xcb, xcb_get_property(m_xcb, 0, m_screen.root, atom(name), type, 0, longestProperty), nullptr));
        if (!reply) {
            return "";
        }
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }

    Connection m_owned;
    xcb_connection_t* m_xcb;
    const xcb_screen_t& m_screen;
};

xcb_rectangle_t rectangle(const Rect& frame) {
    return {static_cast<std::int16_t>(frame.minX()), static_cast<std::int16_t>(frame.minY()),
            static_cast<std::uint16_t>(std::lround(frame.width())),
            static_cast<std::uint16_t>(std::lround(frame.height()))};
}

std::optional<xcb_pixmap_t> pixmapNamed(const std::string& picture) {
    if (!picture.starts_with(pixmapScheme)) {
        return std::nullopt;
    }
    xcb_pixmap_t pixmap = XCB_NONE;
    std::from_chars(picture.data() + pixmapScheme.size(), picture.data() + picture.size(), pixmap);
    return pixmap;
}

} // namespace

std::optional<std::string> RootPictures::picture(const DisplayInfo& display) {
    const auto root = RootWindow::open();
    if (!root) {
        return std::nullopt;
    }
    const RootPainting painting = root->painting();
    if (const auto own = painting.pictures.find(display.uuid); own != painting.pictures.end()) {
        return own->second;
    }
    return fmt::format("{}{}", pixmapScheme, painting.base);
}

bool RootPictures::setPicture(const DisplayInfo& display, const std::string& picture) {
    const auto root = RootWindow::open();
    if (!root) {
        return false;
    }
    const RootPainting before = root->painting();
    RootPainting after = before;
    const auto area = rectangle(display.frame);
    if (const auto named = pixmapNamed(picture)) {
        if (*named != XCB_NONE && !root->isWhole(*named)) {
            return false;
        }
        after.pictures.erase(display.uuid);
        after.pixmap = *named;
        if (!after.pictures.empty()) {
            after.pixmap = root->copy(before.pixmap);
            root->copyArea(*named, after.pixmap, area);
        }
    } else {
        const QImage image =
            fittedImage(PictureFile::read(picture).value_or(QByteArray()), {area.width, area.height});
        if (image.isNull()) {
            return false;
        }
        after.pixmap = root->copy(before.pixmap);
        root->paint(after.pixmap, image, area.x, area.y);
        after.pictures[display.uuid] = PictureFile::url(picture);
    }
    if (after.pixmap == XCB_NONE) {
        root->clear();
    } else {
        root->show(after);
    }
    const bool wasOurs = before.pixmap != before.base;
    if (wasOurs && before.pixmap != after.pixmap) {
        root->free(before.pixmap);
    }
    return true;
}

} // namespace vantrel
