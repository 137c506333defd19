// Any identity data of a monitor gives printable names and well-formed identifiers.
#include "Vantrel/platform/x11/Edid.h"
#include "tests/fuzz/Law.h"

#include <algorithm>
#include <numeric>

namespace {

using namespace vantrel;

bool isPrintable(const std::string& text) {
    return std::ranges::all_of(text, [](char letter) { return letter >= ' ' && letter <= '~'; });
}

bool isUuid(const std::string& text) {
    constexpr std::string_view form = "00000000-0000-0000-0000-000000000000";
    return std::ranges::equal(text, form, [](char letter, char place) {
        return place == '-' ? letter == '-' : std::string_view("0123456789ABCDEF").contains(letter);
    });
}

void check(const EdidBytes& bytes) {
    fuzz::require(isUuid(EdidBlock::displayUUID(bytes, "DP-1")), "every block has an identifier");
    const auto edid = EdidBlock::parse(bytes);
    if (edid) {
        fuzz::require(isPrintable(edid->name) && isPrintable(edid->serialText) &&
                          edid->manufacturer.size() == 3,
                      "texts are printable");
        fuzz::require(!EdidBlock::displayName(*edid).empty(), "every monitor has a name");
        fuzz::require(isUuid(EdidBlock::edidUUID(bytes, *edid)), "every monitor has an identifier");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    EdidBytes bytes(data, data + size);
    check(bytes);
    // The same with a valid header and checksum, which random changes would never produce.
    constexpr std::size_t block = 128;
    if (size >= block) {
        const EdidBytes header{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
        std::ranges::copy(header, bytes.begin());
        const auto sum = std::accumulate(bytes.begin(), bytes.begin() + block - 1, 0U);
        bytes[block - 1] = static_cast<std::uint8_t>(256 - sum % 256);
        fuzz::require(EdidBlock::parse(bytes).has_value(), "an intact block is read");
        check(bytes);
    }
    return 0;
}
