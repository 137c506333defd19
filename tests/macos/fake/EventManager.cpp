#include "tests/macos/fake/EventManager.h"

#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/ObjectLedger.h"

#include <map>

struct OpaqueEventTargetRef {};
struct OpaqueEventRef {
    EventHotKeyID pressed;
};
struct OpaqueEventHotKeyRef {
    vantrel::fake::RegisteredHotKey registered;
};

namespace vantrel::fake {

namespace {

struct Handler {
    EventHandlerUPP function = nullptr;
    void* userData = nullptr;
    std::vector<std::pair<OSType, UInt32>> types;
};

std::vector<Handler>& handlers() {
    static std::vector<Handler> installed;
    return installed;
}

// In the order of registration.
std::vector<EventHotKeyRef>& hotKeys() {
    static std::vector<EventHotKeyRef> registered;
    return registered;
}

OpaqueEventTargetRef applicationTarget;

[[maybe_unused]] const PlatformPart part([] { eventManager() = {}; });

} // namespace

EventManagerControl& eventManager() {
    static EventManagerControl control;
    return control;
}

std::vector<RegisteredHotKey> registeredHotKeys() {
    std::vector<RegisteredHotKey> result;
    for (const EventHotKeyRef hotKey : hotKeys()) {
        result.push_back(hotKey->registered);
    }
    return result;
}

std::size_t installedHandlers() {
    return handlers().size();
}

OSStatus sendHotKeyPressed(OSType signature, UInt32 id) {
    OpaqueEventRef event{.pressed = {.signature = signature, .id = id}};
    for (const Handler& handler : handlers()) {
        for (const auto& [eventClass, eventKind] : handler.types) {
            if (eventClass == 0x6b657962 && eventKind == 5) {
                return handler.function(nullptr, &event, handler.userData);
            }
        }
    }
    return eventNotHandledErr;
}

} // namespace vantrel::fake

using namespace vantrel::fake;

extern "C" {

EventTargetRef GetApplicationEventTarget() {
    return &applicationTarget;
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* /*installed*/) {
    if (target != &applicationTarget || !handler) {
        return paramErr;
    }
    if (eventManager().installError != noErr) {
        return eventManager().installError;
    }
    Handler added{.function = handler, .userData = userData, .types = {}};
    for (ItemCount i = 0; i < typeCount; ++i) {
        added.types.emplace_back(types[i].eventClass, types[i].eventKind);
    }
    handlers().push_back(std::move(added));
    return noErr;
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType* /*actualType*/, ByteCount bufferSize, ByteCount* /*actualSize*/,
                           void* buffer) {
    if (eventManager().parameterError != noErr) {
        return eventManager().parameterError;
    }
    if (name != 0x2d2d2d2d || type != 0x686b6964 || bufferSize < sizeof(EventHotKeyID)) {
        return paramErr;
    }
    *static_cast<EventHotKeyID*>(buffer) = event->pressed;
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID hotKeyID, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* hotKey) {
    if (target != &applicationTarget) {
        return paramErr;
    }
    if (eventManager().registrationError != noErr) {
        return eventManager().registrationError;
    }
    *hotKey = new OpaqueEventHotKeyRef{.registered = {.keyCode = keyCode,
                                                      .modifiers = modifiers,
                                                      .signature = hotKeyID.signature,
                                                      .id = hotKeyID.id,
                                                      .options = options}};
    hotKeys().push_back(*hotKey);
    return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey) {
    if (std::erase(hotKeys(), hotKey) == 0) {
        fail(__func__, "the combination is not registered");
    }
    delete hotKey;
    return noErr;
}

} // extern "C"
