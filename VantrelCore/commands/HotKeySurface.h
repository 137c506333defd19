// What a shortcut does: applies a scene, or runs one of the program's fixed commands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace vantrel {

struct HotKeySurface {
    enum class Kind : std::uint8_t { scene, fixedRestore, fixedSave, stash, quickSwitcher, undo };

    Kind kind = Kind::fixedRestore;
    // The scene's id; empty for fixed commands.
    std::string sceneID;

    [[nodiscard]] static HotKeySurface scene(std::string id) { return {Kind::scene, std::move(id)}; }

    bool operator==(const HotKeySurface&) const = default;
};

} // namespace vantrel

template <>
struct std::hash<vantrel::HotKeySurface> {
    std::size_t operator()(const vantrel::HotKeySurface& surface) const noexcept {
        return std::hash<std::string>{}(surface.sceneID) * 31 + static_cast<std::size_t>(surface.kind);
    }
};
