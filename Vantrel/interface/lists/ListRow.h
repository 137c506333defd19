// A row of a list as a value: what it shows, and the identity by which a list keeps selection and scroll
// position while rows come, go and move.
#pragma once

#include <cstdint>
#include <string>

namespace vantrel {

struct ListRow {
    enum class Kind : std::uint8_t { item, heading };
    enum class Tone : std::uint8_t { plain, accent, warning };

    // Unique within its list, headings included.
    std::string id;
    Kind kind = Kind::item;
    std::string title{};
    // Below the title; a row without one is lower.
    std::string detail{};
    // At the end of the row: a shortcut, a time.
    std::string note{};
    // In front of the note; empty for none.
    std::string noteSymbol{};
    // Of Symbols; empty for none.
    std::string symbol{};
    // Shows the application's icon instead of the symbol.
    std::string bundleID{};
    // Of the symbol; a warning colours the detail too, and in a table the note instead of it.
    Tone tone = Tone::plain;
    bool isPinned = false;

    bool operator==(const ListRow&) const = default;
};

} // namespace vantrel
