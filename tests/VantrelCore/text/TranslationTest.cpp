#include "VantrelCore/text/Translation.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vantrel {
namespace {

class Catalogue final : public Translation {
public:
    explicit Catalogue(std::map<std::string, std::string> texts) : m_texts(std::move(texts)) {}

    [[nodiscard]] const char* text(const char* english) const override {
        const auto found = m_texts.find(english);
        return found == m_texts.end() ? english : found->second.c_str();
    }
    [[nodiscard]] const char* plural(const char* one, const char* many, std::int64_t count) const override {
        return text(count == 1 ? one : many);
    }

private:
    std::map<std::string, std::string> m_texts;
};

class TranslationTest : public testing::Test {
protected:
    void TearDown() override { setTranslation(nullptr); }
};

TEST_F(TranslationTest, TranslatesFormatsAndPluralsAndKeepsEnglishForTheRest) {
    const Catalogue german({{"{} and {}", "{1} und {0}"},
                            {"{0} window since {1}", "{0} Fenster seit {1}"},
                            {"{0} windows since {1}", "Seit {1}: {0} Fenster"},
                            {"", "the catalogue's header"}});
    EXPECT_EQ(trf("{} and {}", "Mail", "Notes"), "Mail and Notes");
    EXPECT_EQ(trn("{0} window since {1}", "{0} windows since {1}", 1, "noon"), "1 window since noon");
    setTranslation(&german);
    EXPECT_EQ(trf("{} and {}", "Mail", "Notes"), "Notes und Mail");
    EXPECT_EQ(trn("{0} window since {1}", "{0} windows since {1}", 1, "noon"), "1 Fenster seit noon");
    EXPECT_EQ(trn("{0} window since {1}", "{0} windows since {1}", 0, "noon"), "Seit noon: 0 Fenster");
    EXPECT_STREQ(tr("Stash"), "Stash");
    EXPECT_STREQ(tr(""), "");
}

TEST_F(TranslationTest, ATranslationThatDoesNotFitIsReplacedByTheEnglishText) {
    const Catalogue damaged({{"{} is here", "{} ist {} da"}, {"{} window", "{:q} Fenster"}});
    setTranslation(&damaged);
    EXPECT_EQ(trf("{} is here", "Mail"), "Mail is here");
    EXPECT_EQ(trn("{} window", "{} windows", 1), "1 window");
}

} // namespace
} // namespace vantrel
