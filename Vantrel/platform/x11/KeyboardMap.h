// Which X key code stands at which place of the keyboard, and what the eight modifier bits mean on this
// server.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/model/HotKeyCombo.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace vantrel {

struct KeyboardMap {
    // By the key's name in the X Keyboard Extension, alternative names included.
    std::map<std::string, xcb_keycode_t, std::less<>> keyCodes;
    // Modifier masks; zero where no key sets one.
    std::uint16_t alt = 0;
    std::uint16_t super = 0;
    std::uint16_t numLock = 0;
    std::uint16_t scrollLock = 0;

    bool operator==(const KeyboardMap&) const = default;

    // None when the server does not answer or has no X Keyboard Extension.
    [[nodiscard]] static std::optional<KeyboardMap> read(const X11Connection& connection);

    struct Key {
        xcb_keycode_t code = 0;
        std::uint16_t modifiers = 0;

        bool operator==(const Key&) const = default;
    };

    // Command is Super and option is Alt. None when this keyboard lacks the key or one of the modifiers.
    [[nodiscard]] std::optional<Key> key(HotKeyCombo combo) const;

    // Every state of the locks that a key may be pressed in, as masks.
    [[nodiscard]] std::vector<std::uint16_t> lockStates() const;
};

} // namespace vantrel
