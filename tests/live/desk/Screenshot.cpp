#include "tests/live/desk/Screenshot.h"

#include <cstring>
#include <png.h>
#include <stdexcept>

namespace vantrel::live {

namespace {

constexpr std::uint32_t everyPlane = 0xFFFFFFFF;

} // namespace

void saveScreenshot(DeskConnection& connection, const std::filesystem::path& file) {
    const Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(
        connection.xcb(), xcb_get_geometry(connection.xcb(), connection.root()), nullptr));
    if (!size) {
        throw std::runtime_error("The X server is gone.");
    }
    const Reply<xcb_get_image_reply_t> image(
        xcb_get_image_reply(connection.xcb(),
                            xcb_get_image(connection.xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, connection.root(), 0,
                                          0, size->width, size->height, everyPlane),
                            nullptr));
    if (!image || image->depth != 24) {
        throw std::runtime_error("The X server gives no picture of its screen.");
    }
    // 32 bits a pixel in the order blue, green, red, nothing: the dummy driver on a little-endian machine.
    png_image picture{};
    picture.version = PNG_IMAGE_VERSION;
    picture.width = size->width;
    picture.height = size->height;
    picture.format = PNG_FORMAT_BGR;
    const std::uint8_t* pixels = xcb_get_image_data(image.get());
    const std::size_t count = std::size_t{size->width} * size->height;
    std::vector<std::uint8_t> colours(count * 3);
    for (std::size_t pixel = 0; pixel < count; ++pixel) {
        std::memcpy(&colours[pixel * 3], &pixels[pixel * 4], 3);
    }
    const bool written = png_image_write_to_file(&picture, file.c_str(), 0, colours.data(), 0, nullptr) != 0;
    if (!written) {
        throw std::runtime_error("The picture " + file.string() + " cannot be written: " + picture.message);
    }
}

} // namespace vantrel::live
