// Converts between Foundation strings and UTF-8. Objective-C++ only.
#pragma once

#import <Foundation/Foundation.h>

#include <optional>
#include <string>

namespace vantrel::FoundationText {

// Returns none for nil and for strings that cannot be converted.
[[nodiscard]] inline std::optional<std::string> utf8(NSString* _Nullable text) {
    const char* const characters = text.UTF8String;
    return characters != nullptr ? std::optional<std::string>(characters) : std::nullopt;
}

// Returns nil if the bytes are not valid UTF-8.
[[nodiscard]] inline NSString* _Nullable make(const std::string& utf8) {
    return [NSString stringWithUTF8String:utf8.c_str()];
}

} // namespace vantrel::FoundationText
