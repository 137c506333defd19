#include "Vantrel/platform/x11/KeyPositions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vantrel::KeyPositions {

namespace {

using Position = std::pair<std::int64_t, std::string_view>;

// Sorted by key code for binary search.
constexpr auto positions = std::to_array<Position>({
    // clang-format off
        {0, "AC01"},
        {1, "AC02"},
        {2, "AC03"},
        {3, "AC04"},
        {4, "AC06"},
        {5, "AC05"},
        {6, "AB01"},
        {7, "AB02"},
        {8, "AB03"},
        {9, "AB04"},
        {10, "LSGT"},
        {11, "AB05"},
        {12, "AD01"},
        {13, "AD02"},
        {14, "AD03"},
        {15, "AD04"},
        {16, "AD06"},
        {17, "AD05"},
        {18, "AE01"},
        {19, "AE02"},
        {20, "AE03"},
        {21, "AE04"},
        {22, "AE06"},
        {23, "AE05"},
        {24, "AE12"},
        {25, "AE09"},
        {26, "AE07"},
        {27, "AE11"},
        {28, "AE08"},
        {29, "AE10"},
        {30, "AD12"},
        {31, "AD09"},
        {32, "AD07"},
        {33, "AD11"},
        {34, "AD08"},
        {35, "AD10"},
        {36, "RTRN"},
        {37, "AC09"},
        {38, "AC07"},
        {39, "AC11"},
        {40, "AC08"},
        {41, "AC10"},
        {42, "BKSL"},
        {43, "AB08"},
        {44, "AB10"},
        {45, "AB06"},
        {46, "AB07"},
        {47, "AB09"},
        {48, "TAB"},
        {49, "SPCE"},
        {50, "TLDE"},
        {51, "BKSP"},
        {53, "ESC"},
        {96, "FK05"},
        {97, "FK06"},
        {98, "FK07"},
        {99, "FK03"},
        {100, "FK08"},
        {101, "FK09"},
        {103, "FK11"},
        {109, "FK10"},
        {111, "FK12"},
        {115, "HOME"},
        {116, "PGUP"},
        {117, "DELE"},
        {118, "FK04"},
        {119, "END"},
        {120, "FK02"},
        {121, "PGDN"},
        {122, "FK01"},
        {123, "LEFT"},
        {124, "RGHT"},
        {125, "DOWN"},
        {126, "UP"},
    // clang-format on
});

static_assert(std::ranges::is_sorted(positions));

} // namespace

std::optional<std::string_view> name(std::int64_t virtualKeyCode) {
    const auto found = std::ranges::lower_bound(positions, virtualKeyCode, {}, &Position::first);
    return found != positions.end() && found->first == virtualKeyCode ? std::optional(found->second)
                                                                      : std::nullopt;
}

} // namespace vantrel::KeyPositions
