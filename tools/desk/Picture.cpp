#include "tools/desk/Picture.h"

#include <algorithm>
#include <cstring>
#include <png.h>
#include <stdexcept>

namespace vantrel::tools {

namespace {

constexpr std::uint32_t everyPlane = 0xFFFFFFFF;
constexpr std::size_t bytesPerPixel = 3;

} // namespace

Picture Picture::take(DeskConnection& connection) {
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
    // 32 bits per pixel in the order blue, green, red, unused: the dummy driver on a little-endian machine.
    Picture picture{.width = size->width, .height = size->height, .colours = {}};
    const std::uint8_t* pixels = xcb_get_image_data(image.get());
    const std::size_t count = picture.width * picture.height;
    picture.colours.resize(count * bytesPerPixel);
    for (std::size_t pixel = 0; pixel < count; ++pixel) {
        std::memcpy(&picture.colours[pixel * bytesPerPixel], &pixels[pixel * 4], bytesPerPixel);
    }
    return picture;
}

void Picture::save(const std::filesystem::path& file) const {
    std::filesystem::create_directories(file.parent_path());
    png_image picture{};
    picture.version = PNG_IMAGE_VERSION;
    picture.width = static_cast<png_uint_32>(width);
    picture.height = static_cast<png_uint_32>(height);
    picture.format = PNG_FORMAT_BGR;
    const bool written = png_image_write_to_file(&picture, file.c_str(), 0, colours.data(), 0, nullptr) != 0;
    if (!written) {
        throw std::runtime_error("The picture " + file.string() + " cannot be written: " + picture.message);
    }
}

Picture::Colour Picture::colourAt(std::size_t x, std::size_t y) const {
    const std::size_t at = (y * width + x) * bytesPerPixel;
    return {colours.at(at), colours.at(at + 1), colours.at(at + 2)};
}

std::optional<Rect> Picture::drawnOn(Colour ground, const Rect& within) const {
    const auto left = static_cast<std::size_t>(std::max(0.0, within.minX()));
    const auto top = static_cast<std::size_t>(std::max(0.0, within.minY()));
    const auto right = std::min(width, static_cast<std::size_t>(within.maxX()));
    const auto bottom = std::min(height, static_cast<std::size_t>(within.maxY()));
    std::size_t minX = right;
    std::size_t minY = bottom;
    std::size_t maxX = left;
    std::size_t maxY = top;
    for (std::size_t y = top; y < bottom; ++y) {
        for (std::size_t x = left; x < right; ++x) {
            if (colourAt(x, y) != ground) {
                minX = std::min(minX, x);
                minY = std::min(minY, y);
                maxX = std::max(maxX, x + 1);
                maxY = std::max(maxY, y + 1);
            }
        }
    }
    if (minX >= maxX) {
        return std::nullopt;
    }
    return Rect{{static_cast<double>(minX), static_cast<double>(minY)},
                {static_cast<double>(maxX - minX), static_cast<double>(maxY - minY)}};
}

} // namespace vantrel::tools
