#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/commands/KeyCodeFormatter.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(HotKeyText, ReadsWhatItWritesForEveryNamedKeyAndModifier) {
    for (std::int64_t key = 0; key < 128; ++key) {
        for (const std::int64_t modifiers : {256, 768, 2560, 4096, 6912}) {
            const HotKeyCombo combo{.keyCode = key, .modifiers = modifiers};
            EXPECT_EQ(HotKeyText::parse(HotKeyText::text(combo)), combo) << HotKeyText::text(combo);
        }
    }
    EXPECT_EQ(HotKeyText::text(HotKeyDefaults::restore), "Shift+Super+R");
}

TEST(HotKeyText, TakesAnyOrderCaseAndNameOfTheModifiers) {
    for (const auto* const text : {"Super+Shift+R", "shift+COMMAND+r", "Meta+Shift+R", "cmd+shift+r"}) {
        EXPECT_EQ(HotKeyText::parse(text), HotKeyDefaults::restore) << text;
    }
    EXPECT_EQ(HotKeyText::parse("f5"), (HotKeyCombo{.keyCode = 96, .modifiers = 0}));
}

TEST(HotKeyText, SaysWhatIsWrong) {
    EXPECT_EQ(HotKeyText::parse("Hyper+R").error(),
              "\"Hyper\" is not a modifier. Use Control, Alt, Shift or Super.");
    const auto tooLong = HotKeyText::parse(std::string(1'000'000, 'R'));
    EXPECT_EQ(tooLong.error(), "A shortcut has at most 100 characters, like Super+Shift+R.");
    for (const auto* const text : {"", "Super+", "Super+RR", "+", "Super"}) {
        EXPECT_FALSE(HotKeyText::parse(text)) << text;
    }
    EXPECT_EQ(HotKeyText::parse("Shift+R").error(),
              "A shortcut needs Control, Alt or Super; otherwise no other program could use the key.");
}

} // namespace
} // namespace vantrel
