// Shared by the fake classes. Compiled without ARC.
#pragma once

#include "tests/macos/fake/cocoa/System.h"

#import <Foundation/Foundation.h>

@class NSImage;

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel::fake::cocoa {

// All functions return autoreleased objects. Nil for none.
[[nodiscard]] NSString* make(const std::optional<std::string>& text);
[[nodiscard]] NSURL* makeURL(const std::string& text);
[[nodiscard]] NSError* makeError(NSInteger code, const std::string& description);
[[nodiscard]] NSArray* makeArray(const std::vector<id>& objects);
[[nodiscard]] NSDictionary* makeDictionary(const std::vector<std::pair<id, id>>& entries);
[[nodiscard]] NSNotification* makeNotification(NSString* name, NSDictionary* userInfo);

[[nodiscard]] NSImage* makeImage(const std::string& shown);
[[nodiscard]] std::size_t resolutions(NSImage* image);

[[nodiscard]] std::string_view text(NSString* string);

// The shared instance of a class, created on first use and released by reset().
[[nodiscard]] id shared(Class kind);

} // namespace vantrel::fake::cocoa
