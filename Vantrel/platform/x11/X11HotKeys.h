// Key combinations grabbed from the X server, in every state of the locks and under every layout.
#pragma once

#include "Vantrel/platform/x11/HeldKeys.h"
#include "Vantrel/platform/x11/KeyboardMap.h"
#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/HotKeys.h"
#include "VantrelCore/ports/MainQueue.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

// Outlived by neither the queue nor, on the main thread, any hot key that it gave.
class X11HotKeys final : public HotKeys {
public:
    X11HotKeys(std::shared_ptr<X11Connection> connection, MainQueue& queue);
    ~X11HotKeys() override;

    [[nodiscard]] std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo,
                                              std::function<void()> action) override;
    void setChangeHandler(std::function<void()> handler) override { m_changeHandler = std::move(handler); }

private:
    class Grab;

    // The number of the extension's events; none when the server lacks it.
    [[nodiscard]] std::optional<std::uint8_t> useXkb();
    // Once the extension is in use, the server tells of changes by these events only.
    void selectKeyboardChanges();
    void keyboardMayHaveChanged();
    void keyPressed(const xcb_key_press_event_t& event);
    void keyboardChanged();
    // All lock states of a key, or nothing.
    [[nodiscard]] bool grab(const KeyboardMap::Key& key) const;
    void ungrab(const KeyboardMap::Key& key) const;

    std::shared_ptr<X11Connection> m_connection;
    MainQueue& m_queue;
    std::optional<KeyboardMap> m_map;
    std::vector<Grab*> m_grabs;
    std::function<void()> m_changeHandler;
    // Used on the event thread alone.
    HeldKeys m_held;
    // A look at the keyboard is on its way to the main thread: one change makes many events.
    std::atomic<bool> m_isLookPosted = false;
    // Expires with this object; only asked for on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    // Last, so that no event finds a half-destroyed object.
    Registration m_presses;
    Registration m_releases;
    Registration m_changes;
};

} // namespace vantrel
