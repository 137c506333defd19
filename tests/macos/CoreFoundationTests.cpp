#include "Vantrel/platform/macos/CFText.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/CoreFoundationObjects.h"

namespace vantrel::fake {
namespace {

struct CFTexts : PlatformTest {};

TEST_F(CFTexts, CharactersOfEveryLengthSurvive) {
    for (const std::string utf8 : {"", "plain", "Fenêtre", "窓", "🪟 window 🪟"}) {
        EXPECT_EQ(CFText::utf8(CFText::make(utf8).get()), utf8);
    }
    EXPECT_EQ(CFText::utf8(CFSTR("constant")), "constant");
}

TEST_F(CFTexts, AnythingElseIsNoText) {
    EXPECT_EQ(CFText::utf8Of(nullptr), std::nullopt);
    EXPECT_EQ(CFText::utf8Of(null().get()), std::nullopt);
    EXPECT_EQ(CFText::utf8Of(brokenText().get()), std::nullopt);
    EXPECT_FALSE(CFText::make("\xff"));
}

using ObjectLedgerDeathTest = PlatformTest;

TEST_F(ObjectLedgerDeathTest, CallsThatCrashAMacFailTheTest) {
    const Value none;
    EXPECT_DEATH(CFRelease(none.get()), "CFRelease: called with NULL");
    EXPECT_DEATH(CFArrayGetCount(static_cast<CFArrayRef>(static_cast<CFTypeRef>(text("x").get()))),
                 "CFArrayGetCount: called with an object of kind 1 instead of 2");
}

} // namespace
} // namespace vantrel::fake
