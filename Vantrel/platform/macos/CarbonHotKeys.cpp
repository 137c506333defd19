#include "Vantrel/platform/macos/CarbonHotKeys.h"

#include <Carbon/Carbon.h>
#include <map>
#include <utility>

namespace vantrel {

namespace {

constexpr OSType signature = 0x56544b31; // "VTK1"

// The actions of this process's registered hot keys by id. Use only on the main thread.
std::map<std::uint32_t, std::function<void()>>& actions() {
    static std::map<std::uint32_t, std::function<void()>> byID;
    return byID;
}

OSStatus hotKeyPressed(EventHandlerCallRef /*next*/, EventRef event, void* /*userData*/) {
    EventHotKeyID pressed{};
    const OSStatus status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                                              sizeof pressed, nullptr, &pressed);
    if (status != noErr) {
        return status;
    }
    const auto found = pressed.signature == signature ? actions().find(pressed.id) : actions().end();
    if (found == actions().end()) {
        return eventNotHandledErr;
    }
    // A copy: the action may remove its own hot key.
    const auto action = found->second;
    action();
    return noErr;
}

// Installs the handler once per process; retries after a failure.
bool installHandler() {
    static bool isInstalled = false;
    if (!isInstalled) {
        const EventTypeSpec type{.eventClass = kEventClassKeyboard, .eventKind = kEventHotKeyPressed};
        isInstalled = InstallEventHandler(GetApplicationEventTarget(), hotKeyPressed, 1, &type, nullptr,
                                          nullptr) == noErr;
    }
    return isInstalled;
}

class CarbonHotKey final : public HotKey {
public:
    CarbonHotKey(EventHotKeyRef registered, std::uint32_t id, std::function<void()> action)
        : m_registered(registered), m_id(id) {
        actions()[id] = std::move(action);
    }

    ~CarbonHotKey() override {
        UnregisterEventHotKey(m_registered);
        actions().erase(m_id);
    }

    CarbonHotKey(const CarbonHotKey&) = delete;
    CarbonHotKey& operator=(const CarbonHotKey&) = delete;

private:
    EventHotKeyRef m_registered;
    std::uint32_t m_id;
};

} // namespace

std::unique_ptr<HotKey> CarbonHotKeys::add(std::uint32_t id, HotKeyCombo combo,
                                           std::function<void()> action) {
    if (!std::in_range<UInt32>(combo.keyCode) || !std::in_range<UInt32>(combo.modifiers) ||
        !installHandler()) {
        return nullptr;
    }
    EventHotKeyRef registered = nullptr;
    const OSStatus status =
        RegisterEventHotKey(static_cast<UInt32>(combo.keyCode), static_cast<UInt32>(combo.modifiers),
                            {.signature = signature, .id = id}, GetApplicationEventTarget(), 0, &registered);
    if (status != noErr || registered == nullptr) {
        return nullptr;
    }
    return std::make_unique<CarbonHotKey>(registered, id, std::move(action));
}

} // namespace vantrel
