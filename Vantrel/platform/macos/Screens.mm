#include "Vantrel/platform/macos/Screens.h"

#include "Vantrel/platform/macos/FoundationText.h"
#include "Vantrel/platform/macos/ScreenNumber.h"

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel::Screens {

namespace {

Rect rect(const NSRect& area) {
    return {.origin = {.x = area.origin.x, .y = area.origin.y},
            .size = {.width = area.size.width, .height = area.size.height}};
}

} // namespace

std::optional<DisplayID> displayID(NSScreen* screen) {
    const id number = screen.deviceDescription[@"NSScreenNumber"];
    return [number isKindOfClass:[NSNumber class]] ? std::optional<DisplayID>([number unsignedIntValue])
                                                   : std::nullopt;
}

std::vector<Screen> read() {
    std::vector<Screen> screens;
    @autoreleasepool {
        for (NSScreen* const screen in NSScreen.screens) {
            screens.push_back({.displayID = displayID(screen),
                               .localizedName = FoundationText::utf8(screen.localizedName).value_or(""),
                               .frame = rect(screen.frame),
                               .visibleFrame = rect(screen.visibleFrame)});
        }
    }
    return screens;
}

} // namespace vantrel::Screens
