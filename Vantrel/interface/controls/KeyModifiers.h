// Converts between Qt's modifiers and those of shortcuts. On a Mac, Qt calls the Command key Control and the
// Control key Meta.
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <QGuiApplication>

#include <array>
#include <utility>

namespace vantrel::KeyModifiers {

[[nodiscard]] inline std::array<std::pair<Qt::KeyboardModifier, std::int64_t>, 4> pairs() {
    const bool isMac = QGuiApplication::platformName() == "cocoa";
    return {{{isMac ? Qt::MetaModifier : Qt::ControlModifier, HotKeyModifiers::control},
             {Qt::AltModifier, HotKeyModifiers::option},
             {Qt::ShiftModifier, HotKeyModifiers::shift},
             {isMac ? Qt::ControlModifier : Qt::MetaModifier, HotKeyModifiers::command}}};
}

[[nodiscard]] inline std::int64_t ofShortcut(Qt::KeyboardModifiers held) {
    std::int64_t mask = 0;
    for (const auto& [modifier, bit] : pairs()) {
        mask |= held.testFlag(modifier) ? bit : 0;
    }
    return mask;
}

[[nodiscard]] inline Qt::KeyboardModifiers ofQt(std::int64_t mask) {
    Qt::KeyboardModifiers modifiers;
    for (const auto& [modifier, bit] : pairs()) {
        modifiers.setFlag(modifier, (mask & bit) != 0);
    }
    return modifiers;
}

} // namespace vantrel::KeyModifiers
