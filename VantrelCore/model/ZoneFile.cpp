#include "VantrelCore/model/ZoneFile.h"

#include <cstdint>

namespace vantrel::ZoneFile {

namespace {

constexpr std::size_t headerSize = 44;
constexpr std::chrono::hours largestOffset{26};

std::int64_t number(std::string_view bytes) {
    // The first bit is the sign.
    std::uint64_t value = !bytes.empty() && (static_cast<unsigned char>(bytes.front()) & 0x80U) != 0
                              ? ~std::uint64_t{0}
                              : std::uint64_t{0};
    for (const char byte : bytes) {
        value = value << 8U | static_cast<unsigned char>(byte);
    }
    return static_cast<std::int64_t>(value);
}

struct Header {
    char version = 0;
    std::size_t isUtCount = 0;
    std::size_t isStandardCount = 0;
    std::size_t leapCount = 0;
    std::size_t timeCount = 0;
    std::size_t typeCount = 0;
    std::size_t characterCount = 0;

    // Size of the data that follows, in bytes.
    [[nodiscard]] std::size_t size(std::size_t timeSize) const {
        return timeCount * (timeSize + 1) + typeCount * 6 + characterCount + leapCount * (timeSize + 4) +
               isStandardCount + isUtCount;
    }
};

std::optional<Header> header(std::string_view content) {
    if (content.size() < headerSize || !content.starts_with("TZif")) {
        return std::nullopt;
    }
    const auto count = [&](std::size_t index) {
        return static_cast<std::size_t>(number(content.substr(20 + index * 4, 4)) & 0xFFFFFFFF);
    };
    return Header{content[4], count(0), count(1), count(2), count(3), count(4), count(5)};
}

std::optional<ZoneRules> rules(std::string_view data, const Header& header, std::size_t timeSize) {
    const std::string_view types = data.substr(header.timeCount * timeSize, header.timeCount);
    const std::string_view offsets = data.substr(header.timeCount * (timeSize + 1), header.typeCount * 6);
    const auto offset = [&](std::size_t type) {
        return std::chrono::seconds{number(offsets.substr(type * 6, 4))};
    };
    for (std::size_t type = 0; type < header.typeCount; ++type) {
        if (std::chrono::abs(offset(type)) > largestOffset) {
            return std::nullopt;
        }
    }
    ZoneRules rules{.firstOffset = offset(0), .transitions = {}, .afterwards = std::nullopt};
    rules.transitions.reserve(header.timeCount);
    for (std::size_t i = 0; i < header.timeCount; ++i) {
        const std::chrono::sys_seconds at{std::chrono::seconds{number(data.substr(i * timeSize, timeSize))}};
        const auto type = static_cast<unsigned char>(types[i]);
        if (type >= header.typeCount || (i > 0 && at <= rules.transitions.back().at)) {
            return std::nullopt;
        }
        rules.transitions.push_back({at, offset(type)});
    }
    return rules;
}

} // namespace

std::optional<ZoneRules> decode(std::string_view content) {
    auto head = header(content);
    std::size_t timeSize = 4;
    if (head && head->version >= '2') {
        // The data is repeated with 64-bit times.
        const std::size_t first = headerSize + head->size(timeSize);
        content = first <= content.size() ? content.substr(first) : "";
        head = header(content);
        timeSize = 8;
    }
    if (!head || head->typeCount == 0 || content.size() - headerSize < head->size(timeSize)) {
        return std::nullopt;
    }
    auto result = rules(content.substr(headerSize), *head, timeSize);
    const std::string_view footer = content.substr(headerSize + head->size(timeSize));
    if (result && timeSize == 8) {
        const auto end = footer.starts_with('\n') ? footer.find('\n', 1) : std::string_view::npos;
        if (end == std::string_view::npos) {
            return std::nullopt;
        }
        if (end > 1) {
            result->afterwards = PosixZone::parse(footer.substr(1, end - 1));
            if (!result->afterwards) {
                return std::nullopt;
            }
        }
    }
    return result;
}

} // namespace vantrel::ZoneFile
