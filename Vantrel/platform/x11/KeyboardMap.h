// Maps key positions to X key codes and gives the meaning of this server's modifier bits.
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
    // Keyed by X Keyboard Extension name, including aliases.
    std::map<std::string, xcb_keycode_t, std::less<>> keyCodes;
    // The modifier that each modifier key sets, as a mask.
    std::map<xcb_keycode_t, std::uint16_t> modifierKeys;
    // Modifier masks; zero if no key sets the modifier.
    std::uint16_t alt = 0;
    std::uint16_t super = 0;
    std::uint16_t numLock = 0;
    std::uint16_t scrollLock = 0;

    bool operator==(const KeyboardMap&) const = default;

    // Returns none if the connection is lost or the server lacks the X Keyboard Extension.
    [[nodiscard]] static std::optional<KeyboardMap> read(const X11Connection& connection);

    struct Key {
        xcb_keycode_t code = 0;
        std::uint16_t modifiers = 0;

        bool operator==(const Key&) const = default;
    };

    // Command maps to Super and option to Alt. Returns none if the keyboard lacks the key or a modifier.
    [[nodiscard]] std::optional<Key> key(HotKeyCombo combo) const;

    // The modifier masks of all combinations of the lock keys.
    [[nodiscard]] std::vector<std::uint16_t> lockStates() const;
};

} // namespace vantrel
