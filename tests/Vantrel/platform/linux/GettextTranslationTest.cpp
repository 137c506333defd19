#include "Vantrel/platform/linux/GettextTranslation.h"

#include "VantrelCore/scenes/SceneTriggerFormatting.h"
#include "VantrelCore/text/NumberText.h"
#include "VantrelCore/text/RelativeTimeCaption.h"
#include "VantrelCore/text/RestoreReasonCaption.h"

#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <cstdlib>

namespace vantrel {
namespace {

// With the catalogue that was built from po/de.po.
class GermanTest : public testing::Test {
protected:
    GermanTest() {
        setenv("LANGUAGE", "de", 1);
        std::setlocale(LC_ALL, "C.UTF-8");
        // Texts are kept by address.
        static const GettextTranslation translation(
            GettextTranslation::folder(std::filesystem::read_symlink("/proc/self/exe")));
        setTranslation(&translation);
    }
    ~GermanTest() override {
        setTranslation(nullptr);
        std::setlocale(LC_ALL, "C");
        unsetenv("LANGUAGE");
    }
};

TEST_F(GermanTest, TextsTimesAndNumbersFollowTheLanguage) {
    EXPECT_STREQ(tr("Restore now"), "Jetzt wiederherstellen");
    EXPECT_STREQ(tr("no such text"), "no such text");
    EXPECT_EQ(SceneTriggerFormatting::timeString(21, 5), "21:05");
    EXPECT_EQ(NumberText::grouped(-1240000), "-1.240.000");
    EXPECT_EQ(NumberText::oneDecimal(12.34), "12,3");
    const Date now = dateFromIso8601("2026-03-02T09:30:00Z").value();
    EXPECT_EQ(RelativeTimeCaption::caption(now - std::chrono::hours{24}, now), "vor 1 Tag");
    EXPECT_EQ(RelativeTimeCaption::caption(now - std::chrono::hours{48}, now), "vor 2 Tagen");
    EXPECT_EQ(inEnglish([] { return NumberText::oneDecimal(0.5) + tr("Undo"); }), "0.5Undo");
}

TEST_F(GermanTest, ReasonsOfRestoresAreTranslatedAsTheyAreShown) {
    const std::pair<const char*, const char*> reasons[] = {
        {"display change", "Bildschirme geändert"},
        {"switch layout (undo (x))", "Anordnung gewechselt (undo (x))"},
        {"undo (restore now (menu))", "rückgängig (jetzt wiederherstellen (Menü))"},
        {"A and B reconnected (abandoned: the displays changed)",
         "A und B wieder angeschlossen (abgebrochen: Bildschirme geändert)"},
        {"what a later version says", "what a later version says"},
    };
    for (const auto& [stored, shown] : reasons) {
        EXPECT_EQ(RestoreReasonCaption::caption(stored), shown);
        EXPECT_EQ(inEnglish([&] { return RestoreReasonCaption::caption(stored); }), stored);
    }
}

} // namespace
} // namespace vantrel
