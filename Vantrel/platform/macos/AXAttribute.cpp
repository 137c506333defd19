#include "Vantrel/platform/macos/AXAttribute.h"

#include <algorithm>

namespace vantrel::AXAttribute {

namespace {

// Further requests to this element would fail too.
bool isHopeless(AXError error) {
    return error == kAXErrorCannotComplete || error == kAXErrorInvalidUIElement ||
           error == kAXErrorAPIDisabled;
}

template <typename T>
std::optional<T> held(const Value& value, AXValueType type) {
    const AXValueRef wrapped = cfCast<AXValueRef>(value.get());
    T result{};
    if (!wrapped || !AXValueGetValue(wrapped, type, &result)) {
        return std::nullopt;
    }
    return result;
}

} // namespace

Value copy(AXUIElementRef element, CFStringRef name) {
    CFTypeRef value = nullptr;
    if (AXUIElementCopyAttributeValue(element, name, &value) != kAXErrorSuccess) {
        // On failure, we do not own whatever is in `value`.
        return {};
    }
    return Value::adopt(value);
}

std::optional<std::vector<Value>> copyTogether(AXUIElementRef element, std::span<const CFStringRef> names) {
    std::vector<const void*> list(names.begin(), names.end());
    const auto count = static_cast<CFIndex>(list.size());
    const auto attributes = CFRef<CFArrayRef>::adopt(
        CFArrayCreate(kCFAllocatorDefault, list.data(), count, &kCFTypeArrayCallBacks));
    if (!attributes) {
        return std::nullopt;
    }
    CFArrayRef reply = nullptr;
    const AXError error = AXUIElementCopyMultipleAttributeValues(element, attributes.get(), 0, &reply);
    if (isHopeless(error)) {
        return std::vector<Value>(names.size());
    }
    if (error != kAXErrorSuccess) {
        return std::nullopt;
    }
    const auto owned = CFRef<CFArrayRef>::adopt(reply);
    if (!cfCast<CFArrayRef>(owned.get()) || CFArrayGetCount(owned.get()) != count) {
        return std::nullopt;
    }
    std::vector<Value> values;
    values.reserve(names.size());
    for (CFIndex i = 0; i < count; ++i) {
        const CFTypeRef item = CFArrayGetValueAtIndex(owned.get(), i);
        // A missing value is an error object or null; neither has a type that callers accept.
        values.push_back(Value::retain(item));
    }
    return values;
}

std::optional<bool> boolean(const Value& value) {
    const CFBooleanRef truth = cfCast<CFBooleanRef>(value.get());
    return truth ? std::optional(CFBooleanGetValue(truth) != 0) : std::nullopt;
}

std::optional<Point> point(const Value& value) {
    const auto raw = held<CGPoint>(value, kAXValueTypeCGPoint);
    return raw ? std::optional(Point{raw->x, raw->y}) : std::nullopt;
}

std::optional<Size> size(const Value& value) {
    const auto raw = held<CGSize>(value, kAXValueTypeCGSize);
    return raw ? std::optional(Size{raw->width, raw->height}) : std::nullopt;
}

CFRef<AXValueRef> make(Point point) {
    const CGPoint raw{point.x, point.y};
    return CFRef<AXValueRef>::adopt(AXValueCreate(kAXValueTypeCGPoint, &raw));
}

CFRef<AXValueRef> make(Size size) {
    const CGSize raw{size.width, size.height};
    return CFRef<AXValueRef>::adopt(AXValueCreate(kAXValueTypeCGSize, &raw));
}

} // namespace vantrel::AXAttribute
