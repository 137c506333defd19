// The note that this program keeps on the root window about the pictures it has painted there. Any program
// can write the note, so its content is not trusted.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace vantrel {

struct RootPainting {
    // X pixmaps; 0 means none. `pixmap` is the one we painted, `base` the one that another program had
    // painted before.
    std::uint32_t pixmap = 0;
    std::uint32_t base = 0;
    // The pictures painted over the base, by display UUID.
    std::map<std::string, std::string> pictures;

    bool operator==(const RootPainting&) const = default;

    // Ignores fields that are missing or have the wrong type.
    [[nodiscard]] static RootPainting parse(std::string_view note);
    [[nodiscard]] std::string note() const;
};

} // namespace vantrel
