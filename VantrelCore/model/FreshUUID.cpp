#include "VantrelCore/model/FreshUUID.h"

#include <cstdint>
#include <fmt/format.h>
#include <random>

namespace vantrel {

std::string freshUUID() {
    std::random_device device;
    std::uniform_int_distribution<std::uint64_t> anyBits;
    // RFC 9562, version 4: the version in the high half, the variant in the low half, the rest random.
    const std::uint64_t high = (anyBits(device) & ~0xF000ULL) | 0x4000ULL;
    const std::uint64_t low = (anyBits(device) & ~(0b11ULL << 62U)) | (0b10ULL << 62U);
    return fmt::format("{:08X}-{:04X}-{:04X}-{:04X}-{:012X}", high >> 32U, (high >> 16U) & 0xFFFFU,
                       high & 0xFFFFU, low >> 48U, low & 0xFFFF'FFFF'FFFFULL);
}

} // namespace vantrel
