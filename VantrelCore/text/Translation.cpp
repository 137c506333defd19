#include "VantrelCore/text/Translation.h"

namespace vantrel {

namespace {

const Translation*& current() {
    static const Translation* translation = nullptr;
    return translation;
}

} // namespace

void setTranslation(const Translation* translation) {
    current() = translation;
}

const char* tr(const char* english) {
    // Catalogues keep their header under the empty text.
    return current() == nullptr || *english == '\0' ? english : current()->text(english);
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
    return current() == nullptr ? (count == 1 ? one : many) : current()->plural(one, many, count);
}

} // namespace TranslatedText

} // namespace vantrel
