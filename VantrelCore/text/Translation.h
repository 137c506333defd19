// Texts for people, in their language. The English text in the source is the key to its translation and is
// shown where there is none. Log lines and everything that programs read stay in English.
#pragma once

#include <concepts>
#include <cstdint>
#include <fmt/format.h>
#include <string>
#include <utility>

namespace vantrel {

// The texts of one language. May be called on any thread; what it returns is valid until the program ends.
class Translation {
public:
    virtual ~Translation() = default;

    // `english` itself if there is no translation.
    [[nodiscard]] virtual const char* text(const char* english) const = 0;
    // The form for `count` of a text with a plural, which `english` gives for one and for any other number.
    [[nodiscard]] virtual const char* plural(const char* one, const char* many, std::int64_t count) const = 0;
};

// Called once, before other threads start; null for English. `translation` must outlive all texts.
void setTranslation(const Translation* translation);

[[nodiscard]] const char* tr(const char* english);

// While it exists, this thread gets texts in English.
class EnglishTexts {
public:
    EnglishTexts();
    ~EnglishTexts();
    EnglishTexts(const EnglishTexts&) = delete;
    EnglishTexts& operator=(const EnglishTexts&) = delete;

private:
    const bool m_before;
};

// What `text` returns, with its texts in English: for log lines.
template <std::invocable Function>
[[nodiscard]] auto inEnglish(Function&& text) {
    const EnglishTexts english;
    return std::forward<Function>(text)();
}

// Marks a text that is translated elsewhere, where `tr` gets it from a table.
[[nodiscard]] constexpr const char* marked(const char* english) {
    return english;
}

namespace TranslatedText {

// A translation that does not fit the arguments is replaced by the English text.
[[nodiscard]] std::string formatted(const char* translated, fmt::string_view english,
                                    fmt::format_args arguments);
[[nodiscard]] const char* plural(const char* one, const char* many, std::int64_t count);

} // namespace TranslatedText

// Like fmt::format with a translated format.
template <typename... Arguments>
[[nodiscard]] std::string trf(fmt::format_string<const Arguments&...> english,
                              const Arguments&... arguments) {
    const fmt::string_view text = english;
    return TranslatedText::formatted(tr(text.data()), text, fmt::make_format_args(arguments...));
}

// A text that depends on a number: trn("{} window", "{} windows", count). Further arguments follow as {1},
// {2}; a text that uses them writes the number as {0}.
template <typename... Arguments>
[[nodiscard]] std::string trn(fmt::format_string<const std::int64_t&, const Arguments&...> one,
                              fmt::format_string<const std::int64_t&, const Arguments&...> many,
                              std::int64_t count, const Arguments&... arguments) {
    const fmt::string_view ifOne = one;
    const fmt::string_view ifMany = many;
    return TranslatedText::formatted(TranslatedText::plural(ifOne.data(), ifMany.data(), count),
                                     count == 1 ? ifOne : ifMany, fmt::make_format_args(count, arguments...));
}

} // namespace vantrel
