// Foundation's texts as UTF-8 and back. For Objective-C++ alone.
#pragma once

#import <Foundation/Foundation.h>

#include <optional>
#include <string>

namespace vantrel::FoundationText {

// None for nil, and for a text that UTF-8 cannot hold.
[[nodiscard]] inline std::optional<std::string> utf8(NSString* _Nullable text) {
    const char* const characters = text.UTF8String;
    return characters != nullptr ? std::optional<std::string>(characters) : std::nullopt;
}

// Nil when the bytes are not UTF-8.
[[nodiscard]] inline NSString* _Nullable make(const std::string& utf8) {
    return [NSString stringWithUTF8String:utf8.c_str()];
}

} // namespace vantrel::FoundationText
