// Reads and writes of the attributes of one accessibility element, and what their values hold.
//
// A value of any other type than the one asked for is none.
#pragma once

#include "Vantrel/platform/macos/CFRef.h"
#include "VantrelCore/model/Geometry.h"

#include <ApplicationServices/ApplicationServices.h>
#include <optional>
#include <span>
#include <vector>

namespace vantrel {

template <>
inline CFTypeID cfTypeID<AXUIElementRef>() {
    return AXUIElementGetTypeID();
}
template <>
inline CFTypeID cfTypeID<AXValueRef>() {
    return AXValueGetTypeID();
}

} // namespace vantrel

namespace vantrel::AXAttribute {

using Value = CFRef<CFTypeRef>;

// None on any error.
[[nodiscard]] Value copy(AXUIElementRef element, CFStringRef name);

// What copy() gives for each name, in one exchange with the application. None at all when the application
// cannot answer that way and has to be asked for one attribute after the other. An element that is gone or
// does not answer gives nothing for each name.
[[nodiscard]] std::optional<std::vector<Value>> copyTogether(AXUIElementRef element,
                                                             std::span<const CFStringRef> names);

[[nodiscard]] std::optional<bool> boolean(const Value& value);
[[nodiscard]] std::optional<Point> point(const Value& value);
[[nodiscard]] std::optional<Size> size(const Value& value);

// None when the platform makes none.
[[nodiscard]] CFRef<AXValueRef> make(Point point);
[[nodiscard]] CFRef<AXValueRef> make(Size size);

} // namespace vantrel::AXAttribute
