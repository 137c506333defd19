#include "tools/desk/EdidBlock.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace vantrel::tools {

namespace {

constexpr std::size_t blockSize = 128;
constexpr std::size_t firstDescriptor = 54;
constexpr std::size_t descriptorSize = 18;
constexpr std::uint8_t serialDescriptor = 0xFF;
constexpr std::uint8_t nameDescriptor = 0xFC;
constexpr std::uint8_t emptyDescriptor = 0x10;

std::uint8_t byteOf(std::uint32_t value, int index) {
    return static_cast<std::uint8_t>(value >> (8 * index));
}

// Text ends with a line feed and is padded with spaces.
void putText(std::vector<std::uint8_t>& block, std::size_t descriptor, std::uint8_t tag,
             const std::string& text) {
    const std::size_t at = firstDescriptor + descriptor * descriptorSize;
    block[at + 3] = text.empty() ? emptyDescriptor : tag;
    if (text.empty()) {
        return;
    }
    std::string padded = text.substr(0, 13);
    if (padded.size() < 13) {
        padded += '\n';
        padded.resize(13, ' ');
    }
    std::ranges::copy(padded, block.begin() + static_cast<std::ptrdiff_t>(at + 5));
}

} // namespace

std::vector<std::uint8_t> edidBlock(const EdidPlan& plan) {
    std::vector<std::uint8_t> block(blockSize, 0);
    constexpr std::array<std::uint8_t, 8> header{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
    std::ranges::copy(header, block.begin());
    std::uint32_t letters = 0;
    for (const char letter : plan.manufacturer) {
        letters = letters << 5U | static_cast<std::uint32_t>(letter - 'A' + 1);
    }
    block[8] = byteOf(letters, 1);
    block[9] = byteOf(letters, 0);
    block[10] = byteOf(plan.product, 0);
    block[11] = byteOf(plan.product, 1);
    for (int index = 0; index < 4; ++index) {
        block[12 + static_cast<std::size_t>(index)] = byteOf(plan.serialNumber, index);
    }
    block[16] = 12;          // week of manufacture
    block[17] = 2024 - 1990; // year
    block[18] = 1;
    block[19] = 4;
    block[20] = 0x80; // digital
    block[21] = static_cast<std::uint8_t>(plan.widthCentimetres);
    block[22] = static_cast<std::uint8_t>(plan.heightCentimetres);
    putText(block, 1, nameDescriptor, plan.name);
    putText(block, 2, serialDescriptor, plan.serialText);
    const unsigned sum = std::accumulate(block.begin(), block.end() - 1, 0U);
    block[127] = static_cast<std::uint8_t>(0U - sum);
    return block;
}

} // namespace vantrel::tools
