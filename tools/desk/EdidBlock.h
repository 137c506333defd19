// Makes the 128-byte identity block (EDID 1.4) that a monitor would report.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantrel::tools {

struct EdidPlan {
    // Three capital letters.
    std::string manufacturer = "VTL";
    std::uint16_t product = 0x1234;
    // 0: none in this field.
    std::uint32_t serialNumber = 0;
    // At most 13 characters each; empty leaves the descriptor out.
    std::string name{};
    std::string serialText{};
    int widthCentimetres = 60;
    int heightCentimetres = 34;
};

// With a valid checksum.
[[nodiscard]] std::vector<std::uint8_t> edidBlock(const EdidPlan& plan);

} // namespace vantrel::tools
