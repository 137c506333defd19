// What a monitor's identity block (EDID) says about it.
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
    // Absent when the monitor fills the field with zeros or with the ones that some makers put there.
    std::optional<std::uint32_t> serialNumber;
    // The texts of the monitor's descriptors; empty when it has none.
    std::string name;
    std::string serialText;

    bool operator==(const Edid&) const = default;
};

namespace EdidBlock {

// None when the base block is missing, cut off or damaged.
[[nodiscard]] std::optional<Edid> parse(std::span<const std::uint8_t> bytes);

// What to call the monitor: its own name, else manufacturer and product number ("ABC 12F0").
[[nodiscard]] std::string displayName(const Edid& edid);

// Upper-case UUID text made of the whole block. Two monitors with the same block get different ones by
// giving the connector of each; an empty connector leaves it out.
[[nodiscard]] std::string displayUUID(std::span<const std::uint8_t> bytes, std::string_view connector);

// Upper-case UUID text whose first group is manufacturer and product and whose second and third groups are
// the serial number, all zero without one; the rest is date, version and size. `bytes` must have parsed.
[[nodiscard]] std::string edidUUID(std::span<const std::uint8_t> bytes, const Edid& edid);

} // namespace EdidBlock

} // namespace vantrel
