#include "VantrelCore/text/SafeText.h"

#include "VantrelCore/text/Unicode.h"

#include <fmt/format.h>
#include <unicode/uchar.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

namespace vantrel::SafeText {

namespace {

// Calls `visit` with each code point of `text` and its bytes.
template <typename Visit>
void visitCharacters(const std::string& text, Visit&& visit) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        UChar32 character = 0;
        // NOLINTNEXTLINE(bugprone-inc-dec-in-conditions): inside ICU's macro
        U8_NEXT(bytes, position, text.size(), character);
        visit(character, std::string_view(text).substr(start, position - start));
    }
}

bool endsLine(UChar32 character) {
    return (U_GET_GC_MASK(character) & (U_GC_ZL_MASK | U_GC_ZP_MASK)) != 0;
}

enum class LineFeeds : std::uint8_t { blank, kept };

std::string safe(std::string_view text, LineFeeds lineFeeds) {
    std::string result;
    result.reserve(text.size());
    visitCharacters(Unicode::validUtf8(text), [&](UChar32 character, std::string_view bytes) {
        if (character == '\n' && lineFeeds == LineFeeds::kept) {
            result += '\n';
        } else if (u_charType(character) == U_CONTROL_CHAR || endsLine(character)) {
            result += ' ';
        } else if (!u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL)) {
            result += bytes;
        }
    });
    return result;
}

} // namespace

std::string line(std::string_view text) {
    return safe(text, LineFeeds::blank);
}

std::string lines(std::string_view text) {
    return safe(text, LineFeeds::kept);
}

std::string json(std::string_view document) {
    std::string result;
    result.reserve(document.size());
    visitCharacters(Unicode::validUtf8(document), [&](UChar32 character, std::string_view bytes) {
        // Outside strings, JSON allows no other control characters than these.
        if (character == '\n' || character == '\t' || character == '\r' ||
            (u_isprint(character) != 0 && !endsLine(character))) {
            result += bytes;
        } else if (character <= 0xFFFF) {
            result += fmt::format("\\u{:04x}", static_cast<unsigned>(character));
        } else {
            result += fmt::format("\\u{:04x}\\u{:04x}", static_cast<unsigned>(U16_LEAD(character)),
                                  static_cast<unsigned>(U16_TRAIL(character)));
        }
    });
    return result;
}

} // namespace vantrel::SafeText
