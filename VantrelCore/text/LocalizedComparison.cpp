#include "VantrelCore/text/LocalizedComparison.h"

#include "VantrelCore/text/Unicode.h"

#include <cstdint>
#include <map>
#include <memory>
#include <unicode/coll.h>

namespace vantrel::LocalizedComparison {

namespace {

// The "C" and "POSIX" locales sort by bytes; the root locale's rules read better and handle case.
icu::Locale localeNamed(const std::string& name) {
    icu::Locale locale = name.empty() ? icu::Locale::getDefault() : icu::Locale(name.c_str());
    return std::string_view(locale.getVariant()) == "POSIX" ? icu::Locale::getRoot() : locale;
}

// One per thread and language: creating a collator costs far more than using it. Null if ICU's data is
// missing.
const icu::Collator* collator(const std::string& locale) {
    thread_local std::map<std::string, std::unique_ptr<icu::Collator>> collators;
    const auto [found, isNew] = collators.try_emplace(locale);
    if (isNew) {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(localeNamed(locale), status));
        if (U_SUCCESS(status) && made) {
            made->setStrength(icu::Collator::SECONDARY);
            found->second = std::move(made);
        }
    }
    return found->second.get();
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), static_cast<std::int32_t>(text.size())};
}

} // namespace

std::weak_ordering caseInsensitive(std::string_view a, std::string_view b, const std::string& locale) {
    if (const icu::Collator* rules = collator(locale)) {
        UErrorCode status = U_ZERO_ERROR;
        const auto result = rules->compareUTF8(piece(a), piece(b), status);
        if (U_SUCCESS(status)) {
            return static_cast<int>(result) <=> 0;
        }
    }
    return Unicode::lowercased(a) <=> Unicode::lowercased(b);
}

} // namespace vantrel::LocalizedComparison
