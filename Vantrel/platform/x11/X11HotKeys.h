// Hot keys as X server key grabs, and the keyboard while one of them is held. They work with any lock state
// and layout.
#pragma once

#include "Vantrel/platform/x11/HeldKeyReader.h"
#include "Vantrel/platform/x11/HeldKeys.h"
#include "Vantrel/platform/x11/KeyboardMap.h"
#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/HeldKeyboard.h"
#include "VantrelCore/ports/HotKeys.h"
#include "VantrelCore/ports/MainQueue.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vantrel {

// The queue must outlive this object, and this object must outlive its hot keys and holds. Destroy all on the
// main thread. One object serves both ports: while the key of a grab is down, only its connection can grab
// the keyboard.
class X11HotKeys final : public HotKeys, public HeldKeyboard {
public:
    X11HotKeys(std::shared_ptr<X11Connection> connection, MainQueue& queue);
    ~X11HotKeys() override;

    [[nodiscard]] std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo,
                                              std::function<void()> action) override;
    [[nodiscard]] std::unique_ptr<HeldKeyboard::Hold> hold(HotKeyCombo combo,
                                                           HeldKeyboard::Handlers handlers) override;
    // The virtual key code of a key of this keyboard; none for keys that shortcuts cannot use.
    [[nodiscard]] std::optional<std::int64_t> virtualKeyCode(std::uint32_t keyCode) const;
    void setChangeHandler(std::function<void()> handler) override { m_changeHandler = std::move(handler); }

private:
    class Grab;
    class KeyboardGrab;

    // Returns the extension's first event number, or none if the server lacks the extension.
    [[nodiscard]] std::optional<std::uint8_t> useXkb();
    // Once the extension is in use, the server reports changes only by these events.
    void selectKeyboardChanges();
    void keyboardMayHaveChanged();
    void keyPressed(const xcb_key_press_event_t& event);
    void keyReleased(const xcb_key_release_event_t& event);
    void keyboardChanged();
    // Grabs the key in all lock states, or in none.
    [[nodiscard]] bool grab(const KeyboardMap::Key& key) const;
    void ungrab(const KeyboardMap::Key& key) const;

    std::shared_ptr<X11Connection> m_connection;
    MainQueue& m_queue;
    std::optional<KeyboardMap> m_map;
    std::vector<Grab*> m_grabs;
    // Null while nobody holds the keyboard.
    KeyboardGrab* m_hold = nullptr;
    // The same for the event thread.
    std::atomic<bool> m_isHeld = false;
    std::function<void()> m_changeHandler;
    // Used only on the event thread.
    HeldKeys m_held;
    // A read of the keyboard is queued on the main thread. One change causes many events.
    std::atomic<bool> m_isLookPosted = false;
    // Expires with this object. Checked only on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    // Last, so that no event finds a half-destroyed object.
    Registration m_presses;
    Registration m_releases;
    Registration m_changes;
};

} // namespace vantrel
