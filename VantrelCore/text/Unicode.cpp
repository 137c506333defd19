#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <memory>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

namespace vantrel::Unicode {

namespace {

char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

// One per thread: an iterator cannot be shared, and creating one costs more than walking a title with it.
icu::BreakIterator* characterIterator() {
    thread_local const std::unique_ptr<icu::BreakIterator> iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    return iterator.get();
}

// In ASCII every byte is a character, except that CR LF is one.
std::vector<std::size_t> asciiCharacterEnds(std::string_view text, std::size_t limit) {
    std::vector<std::size_t> ends;
    ends.reserve(std::min(limit, text.size()));
    for (std::size_t i = 0; i < text.size() && ends.size() < limit; ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            ++i;
        }
        ends.push_back(i + 1);
    }
    return ends;
}

} // namespace

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string lowercased(std::string_view text) {
    std::string result;
    if (isAscii(text)) {
        result.resize(text.size());
        std::ranges::transform(text, result.begin(), asciiLower);
        return result;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::StringByteSink<std::string> sink(&result);
    icu::CaseMap::utf8ToLower("", 0, piece(text), sink, nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

std::vector<std::size_t> characterEnds(std::string_view text, std::size_t limit) {
    icu::BreakIterator* const iterator = characterIterator();
    if (isAscii(text) || !iterator) {
        return asciiCharacterEnds(text, limit);
    }
    std::vector<std::size_t> ends;
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &status);
    iterator->setText(&source, status);
    if (U_SUCCESS(status)) {
        for (auto end = iterator->next(); end != icu::BreakIterator::DONE && ends.size() < limit;
             end = iterator->next()) {
            ends.push_back(static_cast<std::size_t>(end));
        }
    }
    utext_close(&source);
    return ends;
}

std::size_t characterCount(std::string_view text) {
    return characterEnds(text).size();
}

std::string_view prefix(std::string_view text, std::size_t count) {
    const std::vector<std::size_t> ends = characterEnds(text, count);
    return text.substr(0, ends.empty() ? 0 : ends.back());
}

std::string_view trimmed(std::string_view text) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(text.data());
    std::size_t first = text.size();
    std::size_t end = 0;
    for (std::size_t position = 0; position < text.size();) {
        const std::size_t start = position;
        UChar32 character = 0;
        // NOLINTNEXTLINE(bugprone-inc-dec-in-conditions): inside ICU's macro
        U8_NEXT(bytes, position, text.size(), character);
        if (character < 0 || !u_isUWhiteSpace(character)) {
            first = std::min(first, start);
            end = position;
        }
    }
    return first < end ? text.substr(first, end - first) : std::string_view();
}

std::string validUtf8(std::string_view text) {
    if (isAscii(text)) {
        return std::string(text);
    }
    std::string result;
    icu::UnicodeString::fromUTF8(piece(text)).toUTF8String(result);
    return result;
}

} // namespace vantrel::Unicode
