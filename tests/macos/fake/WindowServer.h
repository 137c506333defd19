// The fake platform's window server: the list of what is on screen, the displays, and who is told of their
// reconfigurations.
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
    // None for a display that has no identity.
    std::optional<std::string> uuid = std::nullopt;
};

struct WindowServerControl {
    // What the list holds, front to back; without it there is no list at all. Must be an array.
    std::function<Value()> windowList;
    CGWindowListOption askedOption = 0;
    CGWindowID askedRelativeTo = 1;

    std::vector<Display> displays;
    CGError displayListError = kCGErrorSuccess;
    // The error of the second call, the one with a buffer.
    CGError displayBufferError = kCGErrorSuccess;
    // Called between the two calls that ask for the list.
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

// An item of the window list; a value left out is missing from it.
struct ListedWindow {
    Value layer{};
    Value pid{};
    Value bounds{};
};
[[nodiscard]] Value listItem(const ListedWindow& window);

// Tells everybody who registered, as the display services do on the way from one set to another.
void tellOfReconfiguration(CGDisplayChangeSummaryFlags flags);

} // namespace vantrel::fake
