#include "Vantrel/platform/x11/X11HotKeys.h"

#include "Vantrel/platform/x11/KeyPositions.h"
#include "Vantrel/platform/x11/XcbReply.h"
#include "Vantrel/platform/x11/XcbXkb.h"

#include <algorithm>
#include <utility>

namespace vantrel {

class X11HotKeys::Grab final : public HotKey {
public:
    Grab(X11HotKeys& owner, const KeyboardMap::Key& key, std::function<void()> action)
        : m_owner(owner), m_key(key), m_action(std::move(action)) {
        m_owner.m_grabs.push_back(this);
    }

    ~Grab() override {
        std::erase(m_owner.m_grabs, this);
        release();
    }

    Grab(const Grab&) = delete;
    Grab& operator=(const Grab&) = delete;

    void release() {
        if (m_key) {
            m_owner.ungrab(*std::exchange(m_key, std::nullopt));
        }
    }

    // None after release().
    [[nodiscard]] const std::optional<KeyboardMap::Key>& key() const { return m_key; }

    [[nodiscard]] const std::function<void()>& action() const { return m_action; }

private:
    X11HotKeys& m_owner;
    std::optional<KeyboardMap::Key> m_key;
    std::function<void()> m_action;
};

// The whole keyboard, as this connection has it from the server.
class X11HotKeys::KeyboardGrab final : public HeldKeyboard::Hold {
public:
    KeyboardGrab(X11HotKeys& owner, KeyboardMap::Key shortcut, HeldKeyboard::Handlers handlers)
        : m_owner(owner), m_reader(owner.m_connection, shortcut), m_handlers(std::move(handlers)) {
        const auto withoutShift = static_cast<std::uint16_t>(shortcut.modifiers & ~XCB_MOD_MASK_SHIFT);
        m_modifiers = withoutShift != 0 ? withoutShift : shortcut.modifiers;
        m_owner.m_hold = this;
        m_owner.m_isHeld = true;
    }

    ~KeyboardGrab() override {
        m_owner.m_hold = nullptr;
        m_owner.m_isHeld = false;
        xcb_ungrab_keyboard(m_owner.m_connection->xcb(), XCB_CURRENT_TIME);
        xcb_flush(m_owner.m_connection->xcb());
    }

    KeyboardGrab(const KeyboardGrab&) = delete;
    KeyboardGrab& operator=(const KeyboardGrab&) = delete;

    void pressed(xcb_keycode_t code, std::uint16_t state) {
        if (const auto key = m_reader.read(code, state)) {
            // A copy: the handler may destroy this object.
            const auto handler = m_handlers.pressed;
            handler(*key);
        }
    }

    void keyReleased(xcb_keycode_t code) {
        const auto& modifierKeys = m_owner.m_map->modifierKeys;
        const auto modifier = modifierKeys.find(code);
        if (modifier != modifierKeys.end() && (modifier->second & m_modifiers) != 0) {
            released();
        }
    }

    void released() {
        if (!std::exchange(m_isReleased, true)) {
            const auto handler = m_handlers.released;
            handler();
        }
    }

    // Releases before the grab went to other programs; all later ones come as events.
    [[nodiscard]] bool wasReleasedBefore() const {
        xcb_connection_t* const xcb = m_owner.m_connection->xcb();
        const auto pointer = ownReply(
            xcb_query_pointer_reply(xcb, xcb_query_pointer(xcb, m_owner.m_connection->root()), nullptr));
        return !pointer || (pointer->mask & m_modifiers) != m_modifiers;
    }

private:
    X11HotKeys& m_owner;
    HeldKeyReader m_reader;
    HeldKeyboard::Handlers m_handlers;
    // Those whose release counts.
    std::uint16_t m_modifiers = 0;
    bool m_isReleased = false;
};

X11HotKeys::X11HotKeys(std::shared_ptr<X11Connection> connection, MainQueue& queue)
    : m_connection(std::move(connection)), m_queue(queue) {
    const auto xkbEvents = useXkb();
    m_presses = m_connection->onEvent(XCB_KEY_PRESS, [this](const xcb_generic_event_t& event) {
        keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    });
    m_releases = m_connection->onEvent(XCB_KEY_RELEASE, [this](const xcb_generic_event_t& event) {
        keyReleased(reinterpret_cast<const xcb_key_release_event_t&>(event));
    });
    if (xkbEvents) {
        m_changes = m_connection->onEvent(
            *xkbEvents, [this](const xcb_generic_event_t& /*event*/) { keyboardMayHaveChanged(); });
        selectKeyboardChanges();
    }
    m_map = KeyboardMap::read(*m_connection);
}

X11HotKeys::~X11HotKeys() = default;

std::optional<std::uint8_t> X11HotKeys::useXkb() {
    xcb_connection_t* const xcb = m_connection->xcb();
    const auto* const extension = xcb_get_extension_data(xcb, &xcb_xkb_id);
    if (extension == nullptr || extension->present == 0) {
        return std::nullopt;
    }
    [[maybe_unused]] const auto used = ownReply(xcb_xkb_use_extension_reply(
        xcb, xcb_xkb_use_extension(xcb, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
    // Without the first flag, a grab does not match while the second layout is active, because the server
    // counts the layout as a modifier. Without the second, a held key sends many releases and presses.
    const std::uint32_t flags =
        XCB_XKB_PER_CLIENT_FLAG_GRABS_USE_XKB_STATE | XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    [[maybe_unused]] const auto taken = ownReply(xcb_xkb_per_client_flags_reply(
        xcb, xcb_xkb_per_client_flags(xcb, XCB_XKB_ID_USE_CORE_KBD, flags, flags, 0, 0, 0), nullptr));
    return extension->first_event;
}

void X11HotKeys::selectKeyboardChanges() {
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY |
                                     XCB_XKB_EVENT_TYPE_NAMES_NOTIFY;
    constexpr std::uint16_t everyPart = 0xff;
    xcb_xkb_select_events(m_connection->xcb(), XCB_XKB_ID_USE_CORE_KBD, events, 0, events, everyPart,
                          everyPart, nullptr);
    xcb_flush(m_connection->xcb());
}

void X11HotKeys::keyboardMayHaveChanged() {
    if (m_isLookPosted.exchange(true)) {
        return;
    }
    m_queue.post([this, alive = std::weak_ptr(m_alive)] {
        if (alive.lock()) {
            // Reset before reading, so that later changes cause another read.
            m_isLookPosted = false;
            keyboardChanged();
        }
    });
}

std::unique_ptr<HotKey> X11HotKeys::add(std::uint32_t /*id*/, HotKeyCombo combo,
                                        std::function<void()> action) {
    const auto key = m_map ? m_map->key(combo) : std::nullopt;
    const bool isTaken =
        key && std::ranges::any_of(m_grabs, [&](const Grab* other) { return other->key() == key; });
    if (!key || isTaken || !grab(*key)) {
        return nullptr;
    }
    return std::make_unique<Grab>(*this, *key, std::move(action));
}

std::unique_ptr<HeldKeyboard::Hold> X11HotKeys::hold(HotKeyCombo combo, HeldKeyboard::Handlers handlers) {
    const auto key = m_map ? m_map->key(combo) : std::nullopt;
    if (!key || m_hold != nullptr) {
        return nullptr;
    }
    xcb_connection_t* const xcb = m_connection->xcb();
    const auto grabbed =
        ownReply(xcb_grab_keyboard_reply(xcb,
                                         xcb_grab_keyboard(xcb, 0, m_connection->root(), XCB_CURRENT_TIME,
                                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                         nullptr));
    if (!grabbed || grabbed->status != XCB_GRAB_STATUS_SUCCESS) {
        return nullptr;
    }
    auto hold = std::make_unique<KeyboardGrab>(*this, *key, std::move(handlers));
    if (hold->wasReleasedBefore()) {
        // After the presses that are queued already.
        m_queue.post([this, alive = std::weak_ptr(m_alive), releasing = hold.get()] {
            if (alive.lock() && m_hold == releasing) {
                m_hold->released();
            }
        });
    }
    return hold;
}

std::optional<std::int64_t> X11HotKeys::virtualKeyCode(std::uint32_t keyCode) const {
    constexpr std::int64_t codes = 128;
    for (std::int64_t code = 0; m_map && code < codes; ++code) {
        const auto name = KeyPositions::name(code);
        const auto found = name ? m_map->keyCodes.find(*name) : m_map->keyCodes.end();
        if (found != m_map->keyCodes.end() && found->second == keyCode) {
            return code;
        }
    }
    return std::nullopt;
}

bool X11HotKeys::grab(const KeyboardMap::Key& key) const {
    xcb_connection_t* const xcb = m_connection->xcb();
    std::vector<xcb_void_cookie_t> cookies;
    for (const auto locks : m_map->lockStates()) {
        cookies.push_back(xcb_grab_key_checked(xcb, 0, m_connection->root(),
                                               static_cast<std::uint16_t>(key.modifiers | locks), key.code,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    }
    bool isRefused = !m_connection->isConnected();
    for (const auto& cookie : cookies) {
        isRefused = ownReply(xcb_request_check(xcb, cookie)) != nullptr || isRefused;
    }
    if (isRefused) {
        ungrab(key);
    }
    return !isRefused;
}

void X11HotKeys::ungrab(const KeyboardMap::Key& key) const {
    for (const auto locks : m_map->lockStates()) {
        xcb_ungrab_key(m_connection->xcb(), key.code, m_connection->root(),
                       static_cast<std::uint16_t>(key.modifiers | locks));
    }
    xcb_flush(m_connection->xcb());
}

void X11HotKeys::keyPressed(const xcb_key_press_event_t& event) {
    if (!m_held.press(event.detail, event.time)) {
        return;
    }
    m_queue.post([this, alive = std::weak_ptr(m_alive), code = event.detail, state = event.state] {
        if (!alive.lock() || !m_map) {
            return;
        }
        if (m_hold != nullptr) {
            m_hold->pressed(code, state);
            return;
        }
        constexpr std::uint16_t realModifiers = 0xff;
        const auto locks = static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK | m_map->numLock | m_map->scrollLock);
        const KeyboardMap::Key pressed{
            .code = code, .modifiers = static_cast<std::uint16_t>(state & realModifiers & ~locks)};
        const auto found = std::ranges::find(m_grabs, std::optional(pressed), &Grab::key);
        if (found != m_grabs.end()) {
            // A copy: the action may remove its own hot key.
            const auto action = (*found)->action();
            action();
        }
    });
}

void X11HotKeys::keyReleased(const xcb_key_release_event_t& event) {
    m_held.release(event.detail);
    if (!m_isHeld) {
        return;
    }
    m_queue.post([this, alive = std::weak_ptr(m_alive), code = event.detail] {
        if (alive.lock() && m_hold != nullptr && m_map) {
            m_hold->keyReleased(code);
        }
    });
}

void X11HotKeys::keyboardChanged() {
    const auto map = KeyboardMap::read(*m_connection);
    if (map == m_map) {
        return;
    }
    for (Grab* const each : m_grabs) {
        each->release();
    }
    m_map = map;
    if (m_changeHandler) {
        m_changeHandler();
    }
}

} // namespace vantrel
