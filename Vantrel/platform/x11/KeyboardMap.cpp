#include "Vantrel/platform/x11/KeyboardMap.h"

#include "Vantrel/platform/x11/KeyPositions.h"
#include "Vantrel/platform/x11/XcbReply.h"
#include "Vantrel/platform/x11/XcbXkb.h"

#include <array>
#include <cstring>
#include <span>

namespace vantrel {

namespace {

// Key symbols of X11/keysymdef.h.
constexpr xcb_keysym_t numLockSymbol = 0xff7f;
constexpr xcb_keysym_t scrollLockSymbol = 0xff14;
constexpr xcb_keysym_t leftAlt = 0xffe9;
constexpr xcb_keysym_t rightAlt = 0xffea;
constexpr xcb_keysym_t leftSuper = 0xffeb;
constexpr xcb_keysym_t rightSuper = 0xffec;

constexpr std::uint16_t modifierCount = 8;

std::string nameText(const char* name) {
    return {name, strnlen(name, 4)};
}

bool readNames(xcb_connection_t* xcb, KeyboardMap& map) {
    const std::uint32_t wanted = XCB_XKB_NAME_DETAIL_KEY_NAMES | XCB_XKB_NAME_DETAIL_KEY_ALIASES;
    const auto reply = ownReply(
        xcb_xkb_get_names_reply(xcb, xcb_xkb_get_names(xcb, XCB_XKB_ID_USE_CORE_KBD, wanted), nullptr));
    if (!reply) {
        return false;
    }
    xcb_xkb_get_names_value_list_t list{};
    xcb_xkb_get_names_value_list_unpack(
        xcb_xkb_get_names_value_list(reply.get()), reply->nTypes, reply->indicators, reply->virtualMods,
        reply->groupNames, reply->nKeys, reply->nKeyAliases, reply->nRadioGroups, reply->which, &list);
    for (std::uint8_t i = 0; i < reply->nKeys; ++i) {
        if (const auto name = nameText(list.keyNames[i].name); !name.empty()) {
            map.keyCodes.emplace(name, static_cast<xcb_keycode_t>(reply->firstKey + i));
        }
    }
    for (std::uint8_t i = 0; i < reply->nKeyAliases; ++i) {
        const auto real = map.keyCodes.find(nameText(list.keyAliases[i].real));
        if (real != map.keyCodes.end()) {
            map.keyCodes.emplace(nameText(list.keyAliases[i].alias), real->second);
        }
    }
    return true;
}

// The symbols of one key in all groups and levels.
std::span<const xcb_keysym_t> symbols(xcb_get_keyboard_mapping_reply_t& reply, xcb_keycode_t first,
                                      xcb_keycode_t code) {
    const std::size_t width = reply.keysyms_per_keycode;
    const auto total = static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(&reply));
    const std::size_t start = static_cast<std::size_t>(code - first) * width;
    if (code < first || start + width > total) {
        return {};
    }
    return {xcb_get_keyboard_mapping_keysyms(&reply) + start, width};
}

bool readModifiers(xcb_connection_t* xcb, KeyboardMap& map) {
    const auto* const setup = xcb_get_setup(xcb);
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const auto mappingCookie = xcb_get_keyboard_mapping(xcb, first, count);
    const auto modifierCookie = xcb_get_modifier_mapping(xcb);
    const auto mapping = ownReply(xcb_get_keyboard_mapping_reply(xcb, mappingCookie, nullptr));
    const auto modifiers = ownReply(xcb_get_modifier_mapping_reply(xcb, modifierCookie, nullptr));
    if (!mapping || !modifiers) {
        return false;
    }
    const xcb_keycode_t* const codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const std::uint16_t perModifier = modifiers->keycodes_per_modifier;
    for (std::uint16_t modifier = 0; modifier < modifierCount; ++modifier) {
        const auto mask = static_cast<std::uint16_t>(1U << modifier);
        for (std::uint16_t i = 0; i < perModifier; ++i) {
            map.modifierKeys[codes[modifier * perModifier + i]] |= mask;
            for (const auto symbol : symbols(*mapping, first, codes[modifier * perModifier + i])) {
                // The first modifier that has the key wins.
                const auto take = [mask](std::uint16_t& place) { place = place == 0 ? mask : place; };
                switch (symbol) {
                case numLockSymbol:
                    take(map.numLock);
                    break;
                case scrollLockSymbol:
                    take(map.scrollLock);
                    break;
                case leftAlt:
                case rightAlt:
                    take(map.alt);
                    break;
                case leftSuper:
                case rightSuper:
                    take(map.super);
                    break;
                default:
                    break;
                }
            }
        }
    }
    return true;
}

} // namespace

std::optional<KeyboardMap> KeyboardMap::read(const X11Connection& connection) {
    KeyboardMap map;
    const auto* const extension = xcb_get_extension_data(connection.xcb(), &xcb_xkb_id);
    if (extension == nullptr || extension->present == 0 || !readNames(connection.xcb(), map) ||
        !readModifiers(connection.xcb(), map)) {
        return std::nullopt;
    }
    return map;
}

std::optional<KeyboardMap::Key> KeyboardMap::key(HotKeyCombo combo) const {
    const auto position = KeyPositions::name(combo.keyCode);
    const auto found = position ? keyCodes.find(*position) : keyCodes.end();
    if (found == keyCodes.end()) {
        return std::nullopt;
    }
    struct Meaning {
        std::int64_t modifier;
        std::uint16_t mask;
    };
    const std::array meanings{Meaning{HotKeyModifiers::command, super}, Meaning{HotKeyModifiers::option, alt},
                              Meaning{HotKeyModifiers::shift, XCB_MOD_MASK_SHIFT},
                              Meaning{HotKeyModifiers::control, XCB_MOD_MASK_CONTROL}};
    Key key{.code = found->second, .modifiers = 0};
    for (const auto& meaning : meanings) {
        if ((combo.modifiers & meaning.modifier) != 0) {
            if (meaning.mask == 0) {
                return std::nullopt;
            }
            key.modifiers |= meaning.mask;
        }
    }
    return key;
}

std::vector<std::uint16_t> KeyboardMap::lockStates() const {
    std::vector<std::uint16_t> states{0};
    for (const std::uint16_t lock : {std::uint16_t{XCB_MOD_MASK_LOCK}, numLock, scrollLock}) {
        if (lock != 0) {
            for (std::size_t i = states.size(); i > 0; --i) {
                states.push_back(static_cast<std::uint16_t>(states[i - 1] | lock));
            }
        }
    }
    return states;
}

} // namespace vantrel
