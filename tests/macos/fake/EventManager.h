// The fake platform's Carbon event manager: registered key combinations, and keys that a test presses.
#pragma once

#include <Carbon/Carbon.h>
#include <cstddef>
#include <vector>

namespace vantrel::fake {

struct RegisteredHotKey {
    UInt32 keyCode = 0;
    UInt32 modifiers = 0;
    OSType signature = 0;
    UInt32 id = 0;
    OptionBits options = 0;

    bool operator==(const RegisteredHotKey&) const = default;
};

struct EventManagerControl {
    OSStatus registrationError = noErr;
    OSStatus installError = noErr;
    OSStatus parameterError = noErr;
};

[[nodiscard]] EventManagerControl& eventManager();
[[nodiscard]] std::vector<RegisteredHotKey> registeredHotKeys();

// Handlers last as long as the process, whatever tests do.
[[nodiscard]] std::size_t installedHandlers();

// What the handler answers when such an event comes; eventNotHandledErr when there is none.
OSStatus sendHotKeyPressed(OSType signature, UInt32 id);

} // namespace vantrel::fake
