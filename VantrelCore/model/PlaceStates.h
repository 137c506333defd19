// The states of a window that belong to its place, besides its frame.
#pragma once

#include <nlohmann/json_fwd.hpp>

namespace vantrel {

// All false for an ordinary window, and where a state could not be read.
struct PlaceStates {
    bool isMinimized = false;
    bool isFullscreen = false;
    bool isMaximizedHorizontally = false;
    bool isMaximizedVertically = false;
    // Rolled up to its title bar.
    bool isShaded = false;
    // Kept above other windows.
    bool isAbove = false;
    // Visible on every virtual desktop.
    bool isOnAllDesktops = false;

    bool operator==(const PlaceStates&) const = default;

    [[nodiscard]] bool isOrdinary() const { return *this == PlaceStates{}; }
    [[nodiscard]] bool isMaximized() const { return isMaximizedHorizontally || isMaximizedVertically; }
    // Its frame is the display's rather than its own.
    [[nodiscard]] bool isStretched() const { return isFullscreen || isMaximized(); }
};

// An array of the names of those that are set; unknown names are ignored.
void to_json(nlohmann::json& json, const PlaceStates& states);
void from_json(const nlohmann::json& json, PlaceStates& states);

} // namespace vantrel
