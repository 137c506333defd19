#include "Vantrel/platform/macos/CFText.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/CoreFoundationObjects.h"

namespace vantrel::fake {
namespace {

struct CFRefs : PlatformTest {};
struct CFTexts : PlatformTest {};

TEST_F(CFRefs, AReferenceIsReleasedExactlyOnceHoweverItIsPassedOn) {
    const auto first = text("one");
    EXPECT_EQ(Ledger::references(first.get()), 1);
    {
        auto copy = first;
        Value erased = copy;
        const Value moved = std::move(erased);
        EXPECT_EQ(Ledger::references(first.get()), 3);
        copy = CFRef<CFStringRef>{};
        EXPECT_EQ(Ledger::references(first.get()), 2);
        auto again = CFRef<CFStringRef>::retain(first.get());
        const auto kept = CFRef<CFStringRef>::adopt(again.release());
        EXPECT_FALSE(again);
        EXPECT_EQ(Ledger::references(first.get()), 3);
    }
    EXPECT_EQ(Ledger::references(first.get()), 1);
}

TEST_F(CFRefs, CastingLooksAtTheRealType) {
    const Value string = text("x");
    EXPECT_NE(cfCast<CFStringRef>(string.get()), nullptr);
    EXPECT_EQ(cfCast<CFNumberRef>(string.get()), nullptr);
    EXPECT_EQ(cfCast<CFStringRef>(nullptr), nullptr);
}

TEST_F(CFTexts, EveryLengthOfCharacterSurvives) {
    for (const std::string utf8 : {"", "plain", "Fenêtre", "窓", "🪟 window 🪟"}) {
        EXPECT_EQ(CFText::utf8(CFText::make(utf8).get()), utf8);
    }
    EXPECT_EQ(CFText::utf8(CFSTR("constant")), "constant");
}

TEST_F(CFTexts, WhatIsNoTextIsNone) {
    EXPECT_EQ(CFText::utf8Of(nullptr), std::nullopt);
    EXPECT_EQ(CFText::utf8Of(null().get()), std::nullopt);
    EXPECT_EQ(CFText::utf8Of(brokenText().get()), std::nullopt);
    EXPECT_FALSE(CFText::make("\xff"));
}

using ObjectLedgerDeathTest = PlatformTest;

TEST_F(ObjectLedgerDeathTest, CallsThatCrashAMacEndTheTest) {
    const Value none;
    EXPECT_DEATH(CFRelease(none.get()), "CFRelease: called with NULL");
    EXPECT_DEATH(CFArrayGetCount(static_cast<CFArrayRef>(static_cast<CFTypeRef>(text("x").get()))),
                 "CFArrayGetCount: called with an object of kind 1 instead of 2");
}

} // namespace
} // namespace vantrel::fake
