#include "VantrelCore/text/LocalizedComparison.h"

#include <gtest/gtest.h>
#include <vector>

namespace vantrel {

namespace {

TEST(LocalizedComparison, OrdersNamesAsTheLanguageDoesWhateverTheirCase) {
    const struct {
        const char* locale;
        std::vector<std::string> ordered;
    } cases[] = {
        {"en", {"", "alpha", "Beta", "école", "Edit", "gamma", "Öffnen", "resume", "résumé", "Zeta"}},
        {"sv", {"alpha", "Zeta", "Ångström", "Öffnen"}},
        // Processes started without a language.
        {"en_US_POSIX", {"alpha", "Beta", "gamma"}},
        {"no_such_language", {"alpha", "Beta", "gamma"}},
    };
    for (const auto& [locale, ordered] : cases) {
        for (std::size_t i = 0; i + 1 < ordered.size(); ++i) {
            EXPECT_TRUE(LocalizedComparison::caseInsensitive(ordered[i], ordered[i + 1], locale) < 0)
                << locale << ": " << ordered[i] << ", " << ordered[i + 1];
            EXPECT_TRUE(LocalizedComparison::caseInsensitive(ordered[i + 1], ordered[i], locale) > 0);
        }
    }
    EXPECT_TRUE(LocalizedComparison::caseInsensitive("STRAẞE ÉCOLE", "straße école") == 0);
    EXPECT_TRUE(LocalizedComparison::caseInsensitive("bro\xffken", "BRO\xffKEN") == 0);
}

} // namespace

} // namespace vantrel
