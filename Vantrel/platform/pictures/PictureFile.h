// A picture as desktops name it: a path or a file URL.
#pragma once

#include <QByteArray>

#include <cstddef>
#include <optional>
#include <string>

namespace vantrel::PictureFile {

// In bytes. No picture of a desk comes near it.
inline constexpr std::size_t largest = 256U << 20U;

// "file:///home/ada/a%20b.png"; what is a URL already stays.
[[nodiscard]] std::string url(const std::string& picture);

// The path of a file URL; what is none stays.
[[nodiscard]] std::string path(const std::string& picture);

// There is such a file, a regular one of at most `limit` bytes, and it can be read. Never waits, as for a
// FIFO that nobody writes to.
[[nodiscard]] bool isReadable(const std::string& picture, std::size_t limit = largest);

// What is in it; none when isReadable() says no.
[[nodiscard]] std::optional<QByteArray> read(const std::string& picture, std::size_t limit = largest);

} // namespace vantrel::PictureFile
