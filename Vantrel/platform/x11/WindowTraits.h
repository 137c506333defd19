// A window's type and state, from its own and the window manager's properties.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"

#include <cstdint>
#include <optional>

namespace vantrel {

enum class WindowType : std::uint8_t {
    normal,
    dialog,
    utility,
    toolbar,
    splash,
    desktop,
    dock,
    menu,
    notification,
    dragAndDrop,
};

struct WindowTraits {
    // The first known type in the window's list, if any.
    std::optional<WindowType> type = std::nullopt;
    bool isTransient = false;
    bool isOverrideRedirect = false;
    bool isSkipTaskbar = false;
    bool isModal = false;
    bool isHidden = false;
    bool isShaded = false;
    bool isFullscreen = false;
    bool isMaximizedHorizontally = false;
    bool isMaximizedVertically = false;
    bool isAbove = false;

    bool operator==(const WindowTraits&) const = default;

    [[nodiscard]] WindowKind kind() const;

    // What a program with only this window is. Toolboxes and windows that stay out of the taskbar do not make
    // it a regular one.
    [[nodiscard]] ActivationPolicy policy() const;

    // metacity and marco also mark shaded windows as hidden, but those are on screen.
    [[nodiscard]] bool isMinimized() const { return isHidden && !isShaded; }

    // Without the virtual desktop.
    [[nodiscard]] PlaceStates placeStates() const;

    [[nodiscard]] bool isMaximized() const { return isMaximizedHorizontally || isMaximizedVertically; }
};

} // namespace vantrel
