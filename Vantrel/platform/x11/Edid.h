// Parses a monitor's identification block (EDID).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

using EdidBytes = std::vector<std::uint8_t>;

struct Edid {
    // Three capital letters.
    std::string manufacturer;
    std::uint16_t product = 0;
    // Absent if the field is zero or 0x01010101, a placeholder that some manufacturers use.
    std::optional<std::uint32_t> serialNumber;
    // From the monitor's descriptors; empty if missing.
    std::string name;
    std::string serialText;

    bool operator==(const Edid&) const = default;
};

namespace EdidBlock {

// Returns none if the base block is missing, truncated or damaged.
[[nodiscard]] std::optional<Edid> parse(std::span<const std::uint8_t> bytes);

// The monitor's name, else manufacturer and product number ("ABC 12F0").
[[nodiscard]] std::string displayName(const Edid& edid);

// An upper-case UUID derived from the whole block. To tell apart two monitors with the same block, pass their
// connectors; otherwise pass an empty string.
[[nodiscard]] std::string displayUUID(std::span<const std::uint8_t> bytes, std::string_view connector);

// An upper-case UUID. The first group is manufacturer and product, the second and third are the serial number
// or zero, and the rest is date, version and size. `bytes` must be a valid block.
[[nodiscard]] std::string edidUUID(std::span<const std::uint8_t> bytes, const Edid& edid);

} // namespace EdidBlock

} // namespace vantrel
