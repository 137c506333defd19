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

X11HotKeys::X11HotKeys(std::shared_ptr<X11Connection> connection, MainQueue& queue)
    : m_connection(std::move(connection)), m_queue(queue) {
    const auto xkbEvents = useXkb();
    m_presses = m_connection->onEvent(XCB_KEY_PRESS, [this](const xcb_generic_event_t& event) {
        keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
    });
    m_releases = m_connection->onEvent(XCB_KEY_RELEASE, [this](const xcb_generic_event_t& event) {
        m_held.release(reinterpret_cast<const xcb_key_release_event_t&>(event).detail);
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
