// A screenshot of the private desk's whole screen.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "tools/desk/DeskConnection.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace vantrel::tools {

struct Picture {
    std::size_t width = 0;
    std::size_t height = 0;
    // Blue, green, red; row by row.
    std::vector<std::uint8_t> colours;

    // Throws std::runtime_error with a readable sentence if the server provides none.
    [[nodiscard]] static Picture take(DeskConnection& connection);

    // Writes a PNG file, creating folders. Throws std::runtime_error with a readable sentence on failure.
    void save(const std::filesystem::path& file) const;

    // Blue, green, red.
    using Colour = std::array<std::uint8_t, 3>;
    [[nodiscard]] Colour colourAt(std::size_t x, std::size_t y) const;

    // The smallest rectangle containing every pixel of `within` that differs from `ground`; none if all
    // pixels have that colour.
    [[nodiscard]] std::optional<Rect> drawnOn(Colour ground, const Rect& within) const;
};

} // namespace vantrel::tools
