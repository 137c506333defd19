// A picture file, given as a path or a file URL, as desktops do.
#pragma once

#include <QByteArray>

#include <cstddef>
#include <optional>
#include <string>

namespace vantrel::PictureFile {

// In bytes. Far larger than any wallpaper.
inline constexpr std::size_t largest = 256U << 20U;

// Converts a path to a URL, as in "file:///home/ada/a%20b.png". Returns URLs unchanged.
[[nodiscard]] std::string url(const std::string& picture);

// Converts a file URL to its path. Returns anything else unchanged.
[[nodiscard]] std::string path(const std::string& picture);

// Whether it is a readable regular file of at most `limit` bytes. Never blocks, not even on a FIFO without a
// writer.
[[nodiscard]] bool isReadable(const std::string& picture, std::size_t limit = largest);

// Returns the content, or none if isReadable() is false.
[[nodiscard]] std::optional<QByteArray> read(const std::string& picture, std::size_t limit = largest);

} // namespace vantrel::PictureFile
