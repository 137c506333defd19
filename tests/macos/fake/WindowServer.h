// Fake window server: the list of windows on screen, the displays and the reconfiguration callbacks.
#pragma once

#include "tests/macos/fake/CoreFoundationObjects.h"

#include <CoreGraphics/CoreGraphics.h>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::fake {

struct Display {
    CGDirectDisplayID id = 0;
    CGRect bounds = {};
    bool isBuiltin = false;
    // None for a display without a UUID.
    std::optional<std::string> uuid = std::nullopt;
    bool isAsleep = false;
};

struct WindowServerControl {
    // Returns the list, front to back, which must be an array. If empty, there is no list.
    std::function<Value()> windowList;
    CGWindowListOption askedOption = 0;
    CGWindowID askedRelativeTo = 1;

    std::vector<Display> displays;
    CGError displayListError = kCGErrorSuccess;
    // The error of the second call, which passes a buffer.
    CGError displayBufferError = kCGErrorSuccess;
    // Called between the two calls that read the display list.
    std::function<void()> afterDisplayCount;
    CGError registrationError = kCGErrorSuccess;

    struct Callback {
        CGDisplayReconfigurationCallBack function = nullptr;
        void* userInfo = nullptr;

        bool operator==(const Callback&) const = default;
    };
    std::vector<Callback> callbacks;
};

[[nodiscard]] WindowServerControl& windowServer();

// An item of the window list. Null values are left out.
struct ListedWindow {
    Value layer{};
    Value pid{};
    Value bounds{};
};
[[nodiscard]] Value listItem(const ListedWindow& window);

// Calls all registered callbacks, as the display services do during a change.
void notifyReconfiguration(CGDisplayChangeSummaryFlags flags);

} // namespace vantrel::fake
