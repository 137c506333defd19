#include "Vantrel/platform/macos/QuartzWindowList.h"

#include "Vantrel/platform/macos/CFRef.h"

#include <CoreGraphics/CoreGraphics.h>

namespace vantrel::QuartzWindowList {

namespace {

template <typename T>
std::optional<T> number(CFDictionaryRef entry, CFStringRef key, CFNumberType type) {
    const CFNumberRef found = cfCast<CFNumberRef>(CFDictionaryGetValue(entry, key));
    T value{};
    if (!found || !CFNumberGetValue(found, type, &value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<Rect> bounds(CFDictionaryRef entry) {
    const CFDictionaryRef found = cfCast<CFDictionaryRef>(CFDictionaryGetValue(entry, kCGWindowBounds));
    CGRect rect{};
    if (!found || !CGRectMakeWithDictionaryRepresentation(found, &rect)) {
        return std::nullopt;
    }
    return Rect{{rect.origin.x, rect.origin.y}, {rect.size.width, rect.size.height}};
}

} // namespace

std::vector<WindowListEntry> onScreen() {
    const auto copied = CFRef<CFArrayRef>::adopt(CGWindowListCopyWindowInfo(
        kCGWindowListOptionOnScreenOnly | kCGWindowListExcludeDesktopElements, kCGNullWindowID));
    const CFArrayRef list = cfCast<CFArrayRef>(copied.get());
    if (!list) {
        return {};
    }
    std::vector<WindowListEntry> result(static_cast<std::size_t>(CFArrayGetCount(list)));
    for (std::size_t i = 0; i < result.size(); ++i) {
        const CFDictionaryRef entry =
            cfCast<CFDictionaryRef>(CFArrayGetValueAtIndex(list, static_cast<CFIndex>(i)));
        if (entry) {
            result[i] = {.layer = number<std::int64_t>(entry, kCGWindowLayer, kCFNumberSInt64Type),
                         .ownerPid = number<std::int32_t>(entry, kCGWindowOwnerPID, kCFNumberSInt32Type),
                         .bounds = bounds(entry)};
        }
    }
    return result;
}

} // namespace vantrel::QuartzWindowList
