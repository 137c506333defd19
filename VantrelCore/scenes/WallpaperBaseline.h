// Decides what happens to one display's wallpaper when a scene is applied. Scenes may change it any number of
// times; the user's own picture comes back in the end, unless the user has chosen another meanwhile.
#pragma once

#include "VantrelCore/model/WallpaperMemory.h"

#include <optional>
#include <string>
#include <variant>

namespace vantrel {

namespace WallpaperAction {

// Show the scene's wallpaper.
struct Set {
    std::string path;

    bool operator==(const Set&) const = default;
};

// Put the user's own wallpaper back.
struct Restore {
    std::string url;

    bool operator==(const Restore&) const = default;
};

struct None {
    bool operator==(const None&) const = default;
};

using Any = std::variant<None, Set, Restore>;

} // namespace WallpaperAction

namespace WallpaperBaseline {

struct Decision {
    WallpaperAction::Any action;
    // Replaces the given memory. After a successful `Set` the caller adds the URL to lastSet.
    WallpaperMemory memory;

    bool operator==(const Decision&) const = default;
};

// `scenePath` is the scene's wallpaper for the display, if any; `currentURL` is what the display shows, if
// known. Strings are compared exactly.
[[nodiscard]] Decision decide(const std::optional<std::string>& scenePath,
                              const std::optional<std::string>& currentURL, const std::string& displayUUID,
                              const WallpaperMemory& memory);

} // namespace WallpaperBaseline

} // namespace vantrel
