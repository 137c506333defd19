// Port: the whole keyboard for the quick switcher, from the press of its shortcut until its modifiers are
// released. Meanwhile no other program and no hotkey sees a key.
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace vantrel {

class HeldKeyboard {
public:
    struct Key {
        enum class Kind : std::uint8_t {
            // The shortcut's own key, or Tab.
            next,
            // The same with Shift, unless Shift belongs to the shortcut.
            previous,
            left,
            right,
            first,
            last,
            enter,
            escape,
            backspace,
            // `text` is what the key types without the held modifiers, in UTF-8.
            text,
        };

        Kind kind = Kind::text;
        std::string text{};

        bool operator==(const Key&) const = default;
    };

    // Called on the main thread, never from within hold() and never after the Hold is destroyed.
    struct Handlers {
        std::function<void(const Key&)> pressed;
        // The first of the shortcut's modifiers was released, Shift not counted unless it is the only one;
        // called once, also when that had happened before hold(). Never for a shortcut without modifiers.
        std::function<void()> released;
    };

    // Gives the keyboard back when destroyed, on the main thread.
    class Hold {
    public:
        Hold() = default;
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;
        virtual ~Hold() = default;
    };

    HeldKeyboard() = default;
    HeldKeyboard(const HeldKeyboard&) = delete;
    HeldKeyboard& operator=(const HeldKeyboard&) = delete;
    virtual ~HeldKeyboard() = default;

    // On the main thread. Null when the system refuses, or while another Hold exists.
    [[nodiscard]] virtual std::unique_ptr<Hold> hold(HotKeyCombo combo, Handlers handlers) = 0;
};

} // namespace vantrel
