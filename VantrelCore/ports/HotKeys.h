// Port: key combinations that reach this program whichever program has the keyboard.
//
// A combination names a place on the keyboard, not the letter printed there, and its modifiers exactly; the
// state of Caps Lock and the like does not matter.
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace vantrel {

// A registered combination. Destroying it on the main thread guarantees that its action does not run
// afterwards.
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

    // `action` runs on the main thread once for every press, however long the keys are held. `id` is never
    // reused while the process runs. Null when the system refuses: another program holds the combination, or
    // this keyboard has no such key.
    [[nodiscard]] virtual std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo,
                                                      std::function<void()> action) = 0;

    // Calls `handler` on the main thread when the keyboard has changed: what is registered does not work any
    // longer and is to be registered anew.
    virtual void setChangeHandler(std::function<void()> handler) = 0;
};

} // namespace vantrel
