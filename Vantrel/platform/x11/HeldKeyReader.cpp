#include "Vantrel/platform/x11/HeldKeyReader.h"

#include <array>
#include <string>
#include <utility>
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

namespace vantrel {

using Key = HeldKeyboard::Key;

HeldKeyReader::HeldKeyReader(std::shared_ptr<X11Connection> connection, KeyboardMap::Key shortcut)
    : m_connection(std::move(connection)), m_shortcut(shortcut), m_context(nullptr, xkb_context_unref),
      m_keymap(nullptr, xkb_keymap_unref), m_state(nullptr, xkb_state_unref) {}

HeldKeyReader::~HeldKeyReader() = default;

bool HeldKeyReader::readKeyboard() {
    if (!std::exchange(m_isRead, true)) {
        xcb_connection_t* const xcb = m_connection->xcb();
        m_context.reset(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
        const std::int32_t device = xkb_x11_get_core_keyboard_device_id(xcb);
        if (m_context && device >= 0) {
            m_keymap.reset(
                xkb_x11_keymap_new_from_device(m_context.get(), xcb, device, XKB_KEYMAP_COMPILE_NO_FLAGS));
        }
        if (m_keymap) {
            m_state.reset(xkb_state_new(m_keymap.get()));
        }
    }
    return m_state != nullptr;
}

std::optional<Key> HeldKeyReader::read(xcb_keycode_t code, std::uint16_t state) {
    using Kind = Key::Kind;
    const bool goesBack = (state & ~m_shortcut.modifiers & XCB_MOD_MASK_SHIFT) != 0;
    const Kind step = goesBack ? Kind::previous : Kind::next;
    if (code == m_shortcut.code) {
        return Key{.kind = step};
    }
    if (!readKeyboard()) {
        return std::nullopt;
    }
    // The event's modifiers are the keymap's first eight, and its two highest bits but one are the layout.
    constexpr std::uint16_t realModifiers = 0xff;
    constexpr unsigned layoutShift = 13;
    constexpr std::uint16_t layoutBits = 3;
    const auto held =
        static_cast<xkb_mod_mask_t>(state & realModifiers & ~m_shortcut.modifiers & ~XCB_MOD_MASK_CONTROL);
    xkb_state_update_mask(m_state.get(), held, 0, 0, 0, 0, (state >> layoutShift) & layoutBits);
    switch (xkb_state_key_get_one_sym(m_state.get(), code)) {
    case XKB_KEY_Tab:
    case XKB_KEY_ISO_Left_Tab:
        return Key{.kind = step};
    case XKB_KEY_Left:
    case XKB_KEY_KP_Left:
    case XKB_KEY_Up:
        return Key{.kind = Kind::left};
    case XKB_KEY_Right:
    case XKB_KEY_KP_Right:
    case XKB_KEY_Down:
        return Key{.kind = Kind::right};
    case XKB_KEY_Home:
        return Key{.kind = Kind::first};
    case XKB_KEY_End:
        return Key{.kind = Kind::last};
    case XKB_KEY_Return:
    case XKB_KEY_KP_Enter:
        return Key{.kind = Kind::enter};
    case XKB_KEY_Escape:
        return Key{.kind = Kind::escape};
    case XKB_KEY_BackSpace:
        return Key{.kind = Kind::backspace};
    default:
        break;
    }
    std::array<char, 16> text{};
    const int length = xkb_state_key_get_utf8(m_state.get(), code, text.data(), text.size());
    const bool isText = length > 0 && static_cast<unsigned char>(text[0]) >= ' ' && text[0] != '\x7f';
    return isText ? std::optional(Key{.kind = Kind::text, .text = text.data()}) : std::nullopt;
}

} // namespace vantrel
