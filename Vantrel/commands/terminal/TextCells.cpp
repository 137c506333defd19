#include "Vantrel/commands/terminal/TextCells.h"

#include "VantrelCore/text/Unicode.h"

#include <numeric>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace vantrel::TextCells {

namespace {

constexpr UChar32 emojiPresentation = 0xFE0F;

bool isZeroWidth(UChar32 point) {
    const auto category = U_GET_GC_MASK(point);
    return (category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0;
}

bool isWide(UChar32 point) {
    const auto width = u_getIntPropertyValue(point, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ||
           u_hasBinaryProperty(point, UCHAR_EMOJI_PRESENTATION);
}

Character character(std::string_view cluster) {
    const auto points = icu::UnicodeString::fromUTF8(cluster);
    Character result{std::string(cluster), 0};
    for (std::int32_t offset = 0; offset < points.length(); offset = points.moveIndex32(offset, 1)) {
        const UChar32 point = points.char32At(offset);
        const auto category = U_GET_GC_MASK(point);
        if ((category & (U_GC_CC_MASK | U_GC_ZL_MASK | U_GC_ZP_MASK)) != 0) {
            return {" ", 1};
        }
        if (result.width == 0 && !isZeroWidth(point)) {
            result.width = isWide(point) ? 2 : 1;
        } else if (point == emojiPresentation) {
            result.width = 2;
        }
    }
    return result;
}

} // namespace

std::vector<Character> characters(std::string_view text) {
    const auto valid = Unicode::validUtf8(text);
    std::vector<Character> result;
    std::size_t begin = 0;
    for (const auto end : Unicode::characterEnds(valid)) {
        auto next = character(std::string_view(valid).substr(begin, end - begin));
        begin = end;
        // A combining mark or direction mark without a base character is invisible.
        if (next.width > 0) {
            result.push_back(std::move(next));
        }
    }
    return result;
}

int width(std::string_view text) {
    const auto parts = characters(text);
    return std::accumulate(parts.begin(), parts.end(), 0,
                           [](int sum, const Character& part) { return sum + part.width; });
}

std::string fitted(std::string_view text, int columns, std::string_view ellipsis) {
    const auto parts = characters(text);
    const bool isCut = width(text) > columns;
    const int room = isCut ? columns - width(ellipsis) : columns;
    std::string result;
    int used = 0;
    for (const auto& part : parts) {
        if (used + part.width > room) {
            break;
        }
        result += part.text;
        used += part.width;
    }
    if (isCut && room >= 0) {
        result += ellipsis;
    }
    return result;
}

std::string padded(std::string_view text, int columns, std::string_view ellipsis) {
    auto result = fitted(text, columns, ellipsis);
    const int missing = columns - width(result);
    if (missing > 0) {
        result.append(static_cast<std::size_t>(missing), ' ');
    }
    return result;
}

} // namespace vantrel::TextCells
