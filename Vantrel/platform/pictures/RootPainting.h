// What this program notes on the root window about the pictures it has painted there. Any program can write
// the note, so nothing in it is taken for granted.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace vantrel {

struct RootPainting {
    // X pixmaps; 0 is none. The one that was painted, and what another program had painted before.
    std::uint32_t pixmap = 0;
    std::uint32_t base = 0;
    // By display UUID, which picture has been painted over it.
    std::map<std::string, std::string> pictures;

    bool operator==(const RootPainting&) const = default;

    // What is missing or of another type is left out.
    [[nodiscard]] static RootPainting parse(std::string_view note);
    [[nodiscard]] std::string note() const;
};

} // namespace vantrel
