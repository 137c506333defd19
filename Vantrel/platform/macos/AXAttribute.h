// Reads attributes of an accessibility element and converts their values.
//
// Conversions return none if the value has another type.
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

// Returns none on any error.
[[nodiscard]] Value copy(AXUIElementRef element, CFStringRef name);

// Does the same as copy() for each name, in one exchange with the application. Returns std::nullopt if the
// application does not support that; then read the attributes one by one. If the element is gone or does not
// respond, all values are none.
[[nodiscard]] std::optional<std::vector<Value>> copyTogether(AXUIElementRef element,
                                                             std::span<const CFStringRef> names);

[[nodiscard]] std::optional<bool> boolean(const Value& value);
[[nodiscard]] std::optional<Point> point(const Value& value);
[[nodiscard]] std::optional<Size> size(const Value& value);

// Returns none if the platform cannot create the value.
[[nodiscard]] CFRef<AXValueRef> make(Point point);
[[nodiscard]] CFRef<AXValueRef> make(Size size);

} // namespace vantrel::AXAttribute
