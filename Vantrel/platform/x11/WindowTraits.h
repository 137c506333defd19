// What kind of window a client is, and in which state, from what it and the window manager say of it.
#pragma once

#include <cstdint>
#include <optional>

namespace vantrel {

// Beside the standard subrole of the port, those that X11 windows have.
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
    // The first type of the window's list that is known; absent when there is none.
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

    // In the words of macOS Accessibility.
    [[nodiscard]] const char* subrole() const;

    // metacity and marco call rolled-up windows hidden too; those are on screen.
    [[nodiscard]] bool isMinimized() const { return isHidden && !isShaded; }

    [[nodiscard]] bool isMaximized() const { return isMaximizedHorizontally || isMaximizedVertically; }

    // The layer of the window's entry in the on-screen list; absent for the desktop background, which has no
    // entry.
    [[nodiscard]] std::optional<std::int64_t> layer() const;
};

} // namespace vantrel
