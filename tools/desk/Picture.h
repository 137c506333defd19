// A picture of the private desk's whole screen.
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

    // Throws std::runtime_error with a sentence when the server gives none.
    [[nodiscard]] static Picture take(DeskConnection& connection);

    // Writes a PNG file, with its folders. Throws std::runtime_error with a sentence when it cannot.
    void save(const std::filesystem::path& file) const;

    // Blue, green, red.
    using Colour = std::array<std::uint8_t, 3>;
    [[nodiscard]] Colour colourAt(std::size_t x, std::size_t y) const;

    // The smallest rectangle that holds every pixel of `within` that has not the colour `ground`; none when
    // it is all of that colour.
    [[nodiscard]] std::optional<Rect> drawnOn(Colour ground, const Rect& within) const;
};

} // namespace vantrel::tools
