// The contents of the fake Core Foundation objects, and functions for tests to create them.
#pragma once

#include "Vantrel/platform/macos/CFRef.h"
#include "tests/macos/fake/ObjectLedger.h"

#include <CoreGraphics/CoreGraphics.h>
#include <initializer_list>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vantrel::fake {

using Value = CFRef<CFTypeRef>;

struct StringObject : Object {
    std::string utf8;
    // Contains an unpaired surrogate, so it has no UTF-8 form.
    bool isBroken = false;
};

struct ArrayObject : Object {
    std::vector<Value> items;
};

struct DictionaryObject : Object {
    std::vector<std::pair<Value, Value>> entries;
};

struct NumberObject : Object {
    std::variant<std::int64_t, double> value;
};

struct BooleanObject : Object {
    bool value;
};

struct DateObject : Object {
    // Since the start of 2001.
    double seconds;
};

struct DataObject : Object {
    std::string bytes;
};

struct UUIDObject : Object {
    std::string text;
};

[[nodiscard]] CFRef<CFStringRef> text(const std::string& utf8);
// Creates a string that cannot be converted to UTF-8.
[[nodiscard]] CFRef<CFStringRef> brokenText();
[[nodiscard]] CFRef<CFArrayRef> array(std::vector<Value> items);
[[nodiscard]] CFRef<CFDictionaryRef> dictionary(std::vector<std::pair<std::string, Value>> entries);
[[nodiscard]] CFRef<CFNumberRef> number(std::int64_t value);
[[nodiscard]] CFRef<CFNumberRef> realNumber(double value);
[[nodiscard]] CFRef<CFBooleanRef> boolean(bool value);
// In seconds since the start of 2001.
[[nodiscard]] CFRef<CFDateRef> date(double seconds);
[[nodiscard]] CFRef<CFDataRef> data(const std::string& bytes);
[[nodiscard]] CFRef<CFUUIDRef> uuid(const std::string& text);
[[nodiscard]] Value null();

// A rectangle as in the window list: a dictionary of "X", "Y", "Width" and "Height".
[[nodiscard]] CFRef<CFDictionaryRef> rectangle(const CGRect& rect);

// The UTF-8 form of any string, including constants.
[[nodiscard]] std::string textOf(CFStringRef string);

// Whether two references are to one accessibility element.
[[nodiscard]] bool isSameElement(CFTypeRef one, CFTypeRef other);

} // namespace vantrel::fake
