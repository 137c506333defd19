// Fake Carbon Event Manager: registered hot keys, and key presses by tests.
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

// Handlers stay installed for the life of the process.
[[nodiscard]] std::size_t installedHandlers();

// Sends an event and returns the handler's result; eventNotHandledErr if there is no handler.
OSStatus sendHotKeyPressed(OSType signature, UInt32 id);

} // namespace vantrel::fake
