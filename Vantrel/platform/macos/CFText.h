// Converts between Core Foundation strings and UTF-8.
#pragma once

#include "Vantrel/platform/macos/CFRef.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::CFText {

// Returns none if the string cannot be converted, for example because of an unpaired surrogate.
[[nodiscard]] std::optional<std::string> utf8(CFStringRef text);

// Returns none for null and for objects that are not strings.
[[nodiscard]] std::optional<std::string> utf8Of(CFTypeRef object);

// Returns none if the bytes are not valid UTF-8.
[[nodiscard]] CFRef<CFStringRef> make(std::string_view utf8);

} // namespace vantrel::CFText
