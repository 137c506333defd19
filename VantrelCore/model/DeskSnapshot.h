// The live desk as a value: its windows front to back, each with an identity that lasts as long as the
// window.
//
// Coordinates are global, in points, origin at the top left of the primary display. A frame is what the user
// sees: on X11 with the window manager's decoration and without a client's own shadow.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/model/PlaceStates.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// Names one live window. Opaque; never given to another window while the program runs.
enum class WindowID : std::uint64_t {};

enum class ActivationPolicy : std::uint8_t { regular, accessory, prohibited };

struct RunningApp {
    std::int32_t pid = 0;
    ActivationPolicy policy = ActivationPolicy::regular;
    std::optional<std::string> bundleID;
    std::optional<std::string> localizedName;

    bool operator==(const RunningApp&) const = default;
};

enum class WindowKind : std::uint8_t {
    // A document or main window.
    ordinary,
    // A dialog, sheet or floating panel.
    panel,
    // A splash screen, menu, or window whose kind could not be read.
    other,
};

struct DeskWindow {
    WindowID id{};
    std::int32_t pid = 0;
    // All three strings are valid UTF-8.
    std::string bundleID{};
    // The bundle identifier when the application has no name.
    std::string appName{};
    std::string title{};
    WindowKind kind = WindowKind::other;
    PlaceStates states{};
    // Visible in the current Space or virtual desktop, though other windows may cover it.
    bool isOnScreen = false;
    // The platform can arrange it even while it cannot be seen.
    bool isReachable = true;
    // The number of its virtual desktop, from 0; none when unknown or on all.
    std::optional<std::int64_t> desktop = std::nullopt;
    // None when it could not be read.
    std::optional<Rect> frame = std::nullopt;

    bool operator==(const DeskWindow&) const = default;
};

struct DeskSnapshot {
    // Every running application with windows or a Dock icon, in the platform's order.
    std::vector<RunningApp> apps;
    // The windows of regular applications with a bundle identifier, front to back. Windows of unknown depth,
    // as hidden ones may be, come last.
    std::vector<DeskWindow> windows;

    bool operator==(const DeskSnapshot&) const = default;
};

} // namespace vantrel
