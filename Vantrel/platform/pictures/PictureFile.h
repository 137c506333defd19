// A picture as desktops name it: a path or a file URL.
#pragma once

#include <string>

namespace vantrel::PictureFile {

// "file:///home/ada/a%20b.png"; what is a URL already stays.
[[nodiscard]] std::string url(const std::string& picture);

// The path of a file URL; what is none stays.
[[nodiscard]] std::string path(const std::string& picture);

// There is such a file and it can be read.
[[nodiscard]] bool isReadable(const std::string& picture);

} // namespace vantrel::PictureFile
