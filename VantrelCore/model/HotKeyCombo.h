// A key with modifiers, as shortcuts are stored: a Macintosh virtual key code and a Carbon modifier mask, on
// every platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace vantrel {

namespace HotKeyModifiers {

inline constexpr std::int64_t command = 256;
inline constexpr std::int64_t shift = 512;
inline constexpr std::int64_t option = 2048;
inline constexpr std::int64_t control = 4096;

} // namespace HotKeyModifiers

struct HotKeyCombo {
    std::int64_t keyCode = 0;
    std::int64_t modifiers = 0;

    bool operator==(const HotKeyCombo&) const = default;
};

// The shortcuts until the user records others. Undo and quick switcher have no default.
namespace HotKeyDefaults {

inline constexpr HotKeyCombo restore{15, HotKeyModifiers::command | HotKeyModifiers::shift};
inline constexpr HotKeyCombo save{1, HotKeyModifiers::command | HotKeyModifiers::shift};
inline constexpr HotKeyCombo stash{1, HotKeyModifiers::option | HotKeyModifiers::shift};

} // namespace HotKeyDefaults

} // namespace vantrel

template <>
struct std::hash<vantrel::HotKeyCombo> {
    std::size_t operator()(const vantrel::HotKeyCombo& combo) const noexcept {
        return std::hash<std::int64_t>{}(combo.keyCode) * 31 + std::hash<std::int64_t>{}(combo.modifiers);
    }
};
