// What keys mean while a shortcut's modifiers are held: a move of the selection, or a text.
#pragma once

#include "Vantrel/platform/x11/KeyboardMap.h"
#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/ports/HeldKeyboard.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace vantrel {

class HeldKeyReader {
public:
    // Reads the keyboard at the first key. `shortcut` with its modifiers is the one that is held.
    HeldKeyReader(std::shared_ptr<X11Connection> connection, KeyboardMap::Key shortcut);
    ~HeldKeyReader();
    HeldKeyReader(const HeldKeyReader&) = delete;
    HeldKeyReader& operator=(const HeldKeyReader&) = delete;

    // `state` is that of the key event. None for keys without a meaning, like modifiers.
    [[nodiscard]] std::optional<HeldKeyboard::Key> read(xcb_keycode_t code, std::uint16_t state);

private:
    [[nodiscard]] bool readKeyboard();

    std::shared_ptr<X11Connection> m_connection;
    KeyboardMap::Key m_shortcut;
    bool m_isRead = false;
    std::unique_ptr<xkb_context, void (*)(xkb_context*)> m_context;
    std::unique_ptr<xkb_keymap, void (*)(xkb_keymap*)> m_keymap;
    std::unique_ptr<xkb_state, void (*)(xkb_state*)> m_state;
};

} // namespace vantrel
