#include "VantrelCore/text/Translation.h"

#include <utility>

namespace vantrel {

namespace {

const Translation*& current() {
    static const Translation* translation = nullptr;
    return translation;
}

thread_local bool isEnglish = false;

// Null for English.
const Translation* wanted() {
    return isEnglish ? nullptr : current();
}

} // namespace

EnglishTexts::EnglishTexts() : m_before(std::exchange(isEnglish, true)) {}

EnglishTexts::~EnglishTexts() {
    isEnglish = m_before;
}

void setTranslation(const Translation* translation) {
    current() = translation;
}

const char* tr(const char* english) {
    // Catalogues keep their header under the empty text.
    const Translation* const translation = wanted();
    return translation == nullptr || *english == '\0' ? english : translation->text(english);
}

namespace TranslatedText {

std::string formatted(const char* translated, fmt::string_view english, fmt::format_args arguments) {
    try {
        return fmt::vformat(translated, arguments);
    } catch (const fmt::format_error&) {
        return fmt::vformat(english, arguments);
    }
}

const char* plural(const char* one, const char* many, std::int64_t count) {
    const Translation* const translation = wanted();
    return translation == nullptr ? (count == 1 ? one : many) : translation->plural(one, many, count);
}

} // namespace TranslatedText

} // namespace vantrel
