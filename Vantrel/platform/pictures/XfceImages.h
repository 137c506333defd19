// Parses the reply of Xfce's settings daemon to a query for a monitor's pictures.
#pragma once

#include <gio/gio.h>
#include <map>
#include <string>

namespace vantrel {

// The last component of a setting that holds a picture.
inline constexpr const char* xfceImageKey = "/last-image";

// Returns the picture of every workspace, keyed by setting. Empty if the reply has another type.
[[nodiscard]] std::map<std::string, std::string> xfceImages(GVariant* reply);

} // namespace vantrel
