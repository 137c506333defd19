// Core Foundation's strings as UTF-8 and back.
#pragma once

#include "Vantrel/platform/macos/CFRef.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantrel::CFText {

// None when it is no text that UTF-8 can hold, as one with half a surrogate pair.
[[nodiscard]] std::optional<std::string> utf8(CFStringRef text);

// None for null and for an object that is no string.
[[nodiscard]] std::optional<std::string> utf8Of(CFTypeRef object);

// None when the bytes are not UTF-8.
[[nodiscard]] CFRef<CFStringRef> make(std::string_view utf8);

} // namespace vantrel::CFText
