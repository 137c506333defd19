#include "tests/macos/fake/WindowServer.h"

#include "tests/macos/PlatformTest.h"

#include <ColorSync/ColorSync.h>
#include <algorithm>
#include <array>

namespace vantrel::fake {

namespace {

[[maybe_unused]] const PlatformPart part([] { windowServer() = {}; });

const Display* find(CGDirectDisplayID id) {
    const auto found = std::ranges::find(windowServer().displays, id, &Display::id);
    return found == windowServer().displays.end() ? nullptr : &*found;
}

} // namespace

WindowServerControl& windowServer() {
    static WindowServerControl control;
    return control;
}

Value listItem(const ListedWindow& window) {
    std::vector<std::pair<std::string, Value>> entries{{"kCGWindowNumber", number(1)}};
    const std::array values{std::pair{"kCGWindowLayer", window.layer},
                            std::pair{"kCGWindowOwnerPID", window.pid},
                            std::pair{"kCGWindowBounds", window.bounds}};
    for (const auto& [key, value] : values) {
        if (value) {
            entries.emplace_back(key, value);
        }
    }
    return dictionary(std::move(entries));
}

void notifyReconfiguration(CGDisplayChangeSummaryFlags flags) {
    const auto callbacks = windowServer().callbacks;
    for (const auto& callback : callbacks) {
        callback.function(1, flags, callback.userInfo);
    }
}

} // namespace vantrel::fake

using namespace vantrel::fake;

extern "C" {

const CFStringRef kCGWindowLayer = CFSTR("kCGWindowLayer");
const CFStringRef kCGWindowOwnerPID = CFSTR("kCGWindowOwnerPID");
const CFStringRef kCGWindowBounds = CFSTR("kCGWindowBounds");

CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option, CGWindowID relativeToWindow) {
    auto& server = windowServer();
    server.askedOption = option;
    server.askedRelativeTo = relativeToWindow;
    return server.windowList ? static_cast<CFArrayRef>(server.windowList().release()) : nullptr;
}

bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect* rect) {
    std::array<double, 4> values{};
    const std::array<CFStringRef, 4> keys{CFSTR("X"), CFSTR("Y"), CFSTR("Width"), CFSTR("Height")};
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const void* const value = CFDictionaryGetValue(dictionary, keys[i]);
        if (!value || kindOf(value) != Kind::number ||
            !CFNumberGetValue(static_cast<CFNumberRef>(value), kCFNumberDoubleType, &values[i])) {
            return false;
        }
    }
    *rect = {{values[0], values[1]}, {values[2], values[3]}};
    return true;
}

CGError CGGetActiveDisplayList(uint32_t maximum, CGDirectDisplayID* displays, uint32_t* count) {
    auto& server = windowServer();
    const CGError error = displays ? server.displayBufferError : server.displayListError;
    if (error != kCGErrorSuccess) {
        *count = 7;
        return error;
    }
    *count = static_cast<uint32_t>(server.displays.size());
    if (displays) {
        *count = std::min(*count, maximum);
        for (uint32_t i = 0; i < *count; ++i) {
            displays[i] = server.displays[i].id;
        }
    } else if (server.afterDisplayCount) {
        server.afterDisplayCount();
    }
    return kCGErrorSuccess;
}

CGDirectDisplayID CGMainDisplayID() {
    return windowServer().displays.empty() ? kCGNullDirectDisplay : windowServer().displays.front().id;
}

boolean_t CGDisplayIsAsleep(CGDirectDisplayID display) {
    const Display* const found = find(display);
    return found && found->isAsleep ? 1 : 0;
}

boolean_t CGDisplayIsBuiltin(CGDirectDisplayID display) {
    const Display* const found = find(display);
    return found && found->isBuiltin ? 1 : 0;
}

CGRect CGDisplayBounds(CGDirectDisplayID display) {
    const Display* const found = find(display);
    return found ? found->bounds : CGRect{};
}

CFUUIDRef CGDisplayCreateUUIDFromDisplayID(uint32_t display) {
    const Display* const found = find(display);
    return found && found->uuid ? uuid(*found->uuid).release() : nullptr;
}

CGError CGDisplayRegisterReconfigurationCallback(CGDisplayReconfigurationCallBack callBack, void* userInfo) {
    if (windowServer().registrationError == kCGErrorSuccess) {
        windowServer().callbacks.push_back({callBack, userInfo});
    }
    return windowServer().registrationError;
}

CGError CGDisplayRemoveReconfigurationCallback(CGDisplayReconfigurationCallBack callBack, void* userInfo) {
    return std::erase(windowServer().callbacks, WindowServerControl::Callback{callBack, userInfo}) == 1
               ? kCGErrorSuccess
               : kCGErrorIllegalArgument;
}

} // extern "C"
