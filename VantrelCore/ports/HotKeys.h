// Port: global hotkeys, delivered to this program whichever program has the keyboard focus.
//
// A combination names a physical key, not the letter printed on it, and the exact modifiers. Caps Lock and
// other locks are ignored.
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vantrel {

// A registered combination. Destroying it on the main thread guarantees that its action never runs again.
class HotKey {
public:
    HotKey() = default;
    HotKey(const HotKey&) = delete;
    HotKey& operator=(const HotKey&) = delete;
    virtual ~HotKey() = default;
};

// Used on the main thread.
class HotKeys {
public:
    HotKeys() = default;
    HotKeys(const HotKeys&) = delete;
    HotKeys& operator=(const HotKeys&) = delete;
    virtual ~HotKeys() = default;

    // `action` runs on the main thread once per press, however long the keys are held. `id` is never reused
    // within a process. Null when the system refuses: another program holds the combination, or the keyboard
    // has no such key.
    [[nodiscard]] virtual std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo,
                                                      std::function<void()> action) = 0;

    // Calls `handler` on the main thread when the keyboard has changed. Registered hotkeys have stopped
    // working by then and must be registered again.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace vantrel
