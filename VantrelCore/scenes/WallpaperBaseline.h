// What to do about one display's wallpaper when a scene is applied, so that scenes may change it any number
// of times and the user's own picture comes back in the end, unless the user has chosen another meanwhile.
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
    // To be kept instead of the given one. After a successful `Set` the caller adds the URL to lastSet.
    WallpaperMemory memory;

    bool operator==(const Decision&) const = default;
};

// `scenePath`: the scene's wallpaper for the display, none without one; `currentURL`: what the display shows,
// none when unknown. Texts are compared exactly.
[[nodiscard]] Decision decide(const std::optional<std::string>& scenePath,
                              const std::optional<std::string>& currentURL, const std::string& displayUUID,
                              const WallpaperMemory& memory);

} // namespace WallpaperBaseline

} // namespace vantrel
