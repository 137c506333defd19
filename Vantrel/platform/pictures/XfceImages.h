// What the settings daemon of Xfce answers when it is asked for the pictures of a monitor.
#pragma once

#include <gio/gio.h>
#include <map>
#include <string>

namespace vantrel {

// The last part of a setting that names a picture.
inline constexpr const char* xfceImageKey = "/last-image";

// The picture of every workspace, by the name of its setting. Empty when the answer is of another type.
[[nodiscard]] std::map<std::string, std::string> xfceImages(GVariant* answer);

} // namespace vantrel
