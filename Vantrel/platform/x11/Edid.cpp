#include "Vantrel/platform/x11/Edid.h"

#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <numeric>
#include <sodium.h>

namespace vantrel::EdidBlock {

namespace {

constexpr std::size_t baseBlockSize = 128;
constexpr std::array<std::uint8_t, 8> header{0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};

// Offsets in the base block.
constexpr std::size_t manufacturerAt = 8;
constexpr std::size_t productAt = 10;
constexpr std::size_t serialAt = 12;
constexpr std::size_t dateAt = 16;
constexpr std::array<std::size_t, 4> descriptorsAt{54, 72, 90, 108};

constexpr std::uint8_t serialDescriptor = 0xFF;
constexpr std::uint8_t nameDescriptor = 0xFC;
constexpr std::size_t descriptorTextAt = 5;
constexpr std::size_t descriptorTextSize = 13;

constexpr std::uint32_t serialPlaceholder = 0x01010101;

using Uuid = std::array<std::uint8_t, 16>;

std::string uuidText(const Uuid& bytes) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            text += '-';
        }
        text += fmt::format("{:02X}", bytes[i]);
    }
    return text;
}

bool isIntact(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < baseBlockSize || !std::ranges::equal(bytes.first(header.size()), header)) {
        return false;
    }
    const auto block = bytes.first(baseBlockSize);
    return std::accumulate(block.begin(), block.end(), 0U) % 256 == 0;
}

// Each letter takes five bits, with 1 for A. Other values become question marks.
std::string manufacturerLetters(std::span<const std::uint8_t> bytes) {
    const unsigned packed = static_cast<unsigned>(bytes[manufacturerAt]) << 8U | bytes[manufacturerAt + 1];
    std::string letters;
    for (const unsigned shift : {10U, 5U, 0U}) {
        const unsigned number = packed >> shift & 31U;
        letters += number >= 1 && number <= 26 ? static_cast<char>('A' + number - 1) : '?';
    }
    return letters;
}

// The string ends with a line feed and is padded with spaces. Drops anything but printable ASCII.
std::string descriptorText(std::span<const std::uint8_t> bytes, std::uint8_t tag) {
    for (const std::size_t at : descriptorsAt) {
        const auto descriptor = bytes.subspan(at, descriptorTextAt + descriptorTextSize);
        if (descriptor[0] != 0 || descriptor[1] != 0 || descriptor[2] != 0 || descriptor[3] != tag) {
            continue;
        }
        std::string text;
        for (const std::uint8_t byte : descriptor.subspan(descriptorTextAt)) {
            if (byte == '\n' || byte == 0) {
                break;
            }
            if (byte >= 0x20 && byte < 0x7F) {
                text += static_cast<char>(byte);
            }
        }
        const std::size_t first = text.find_first_not_of(' ');
        return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
    }
    return "";
}

} // namespace

std::optional<Edid> parse(std::span<const std::uint8_t> bytes) {
    if (!isIntact(bytes)) {
        return std::nullopt;
    }
    std::uint32_t serial = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        serial |= static_cast<std::uint32_t>(bytes[serialAt + i]) << (8 * i);
    }
    const bool hasSerial = serial != 0 && serial != serialPlaceholder;
    return Edid{.manufacturer = manufacturerLetters(bytes),
                .product = static_cast<std::uint16_t>(bytes[productAt] | bytes[productAt + 1] << 8U),
                .serialNumber = hasSerial ? std::optional(serial) : std::nullopt,
                .name = descriptorText(bytes, nameDescriptor),
                .serialText = descriptorText(bytes, serialDescriptor)};
}

std::string displayName(const Edid& edid) {
    return edid.name.empty() ? fmt::format("{} {:04X}", edid.manufacturer, edid.product) : edid.name;
}

std::string displayUUID(std::span<const std::uint8_t> bytes, std::string_view connector) {
    std::string input = "display\n";
    input += connector;
    input += '\n';
    input.append(bytes.begin(), bytes.end());
    Uuid uuid{};
    // libsodium takes unsigned bytes.
    crypto_generichash(uuid.data(), uuid.size(), reinterpret_cast<const unsigned char*>(input.data()),
                       input.size(), nullptr, 0);
    // Version 8 (custom) and the RFC 4122 variant.
    uuid[6] = static_cast<std::uint8_t>((uuid[6] & 0x0FU) | 0x80U);
    uuid[8] = static_cast<std::uint8_t>((uuid[8] & 0x3FU) | 0x80U);
    return uuidText(uuid);
}

std::string edidUUID(std::span<const std::uint8_t> bytes, const Edid& edid) {
    Uuid uuid{};
    std::copy_n(bytes.begin() + manufacturerAt, uuid.size(), uuid.begin());
    constexpr std::size_t serialInUuid = serialAt - manufacturerAt;
    static_assert(serialInUuid + 4 == dateAt - manufacturerAt);
    if (!edid.serialNumber) {
        std::fill_n(uuid.begin() + serialInUuid, 4, std::uint8_t{0});
        if (!edid.serialText.empty()) {
            std::array<std::uint8_t, crypto_generichash_BYTES_MIN> digest{};
            crypto_generichash(digest.data(), digest.size(),
                               reinterpret_cast<const unsigned char*>(edid.serialText.data()),
                               edid.serialText.size(), nullptr, 0);
            std::copy_n(digest.begin(), 4, uuid.begin() + serialInUuid);
        }
    }
    return uuidText(uuid);
}

} // namespace vantrel::EdidBlock
