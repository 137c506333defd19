// A window's type and state, from its own and the window manager's properties.
#pragma once

#include <cstdint>
#include <optional>

namespace vantrel {

// The subroles of X11 windows besides the port's standard subrole.
inline constexpr const char* dialogWindowSubrole = "AXDialog";
inline constexpr const char* floatingWindowSubrole = "AXFloatingWindow";
inline constexpr const char* unknownWindowSubrole = "AXUnknown";

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

    bool operator==(const WindowTraits&) const = default;

    // As in macOS Accessibility.
    [[nodiscard]] const char* subrole() const;

    // metacity and marco also mark shaded windows as hidden, but those are on screen.
    [[nodiscard]] bool isMinimized() const { return isHidden && !isShaded; }

    [[nodiscard]] bool isMaximized() const { return isMaximizedHorizontally || isMaximizedVertically; }

    // The layer in the on-screen window list. None for the desktop background, which is not in the list.
    [[nodiscard]] std::optional<std::int64_t> layer() const;
};

} // namespace vantrel
