#include "Vantrel/platform/macos/CarbonHotKeys.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/EventManager.h"

#include <cstdlib>
#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr OSType own = 0x56544b31; // "VTK1"
constexpr HotKeyCombo commandShiftR{15, 768};

struct MacHotKeys : PlatformTest {
    CarbonHotKeys adapter;
    int presses = 0;

    std::unique_ptr<HotKey> add(std::uint32_t id, HotKeyCombo combo = commandShiftR) {
        return adapter.add(id, combo, [this] { ++presses; });
    }
    void TearDown() override {
        EXPECT_THAT(registeredHotKeys(), IsEmpty());
        PlatformTest::TearDown();
    }
};

TEST_F(MacHotKeys, AreRegisteredWithSignatureAndNumber) {
    const auto restore = add(1);
    const auto scene = add(1000, {200, 6912});
    EXPECT_THAT(registeredHotKeys(),
                ElementsAre(RegisteredHotKey{15, 768, own, 1, 0}, RegisteredHotKey{200, 6912, own, 1000, 0}));
    EXPECT_EQ(sendHotKeyPressed(own, 1), noErr);
    EXPECT_EQ(presses, 1);
}

TEST_F(MacHotKeys, InstallTheHandlerOncePerProcess) {
    const auto first = add(2);
    const CarbonHotKeys another;
    const auto second = add(3);
    EXPECT_EQ(installedHandlers(), 1U);
}

using MacHotKeysDeathTest = MacHotKeys;

TEST_F(MacHotKeysDeathTest, RetryTheHandlersInstallationWithTheNextKey) {
    // In a process of its own, where no handler is installed yet.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            eventManager().installError = paramErr;
            const bool isRefused = add(1) == nullptr && registeredHotKeys().empty();
            eventManager().installError = noErr;
            const auto key = add(1);
            sendHotKeyPressed(own, 1);
            std::_Exit(isRefused && key && presses == 1 ? 7 : 1);
        },
        testing::ExitedWithCode(7), "");
}

TEST_F(MacHotKeys, IgnoreKeysThatAreNotOrNoLongerTheirs) {
    auto key = add(1);
    EXPECT_EQ(sendHotKeyPressed(0x41424344, 1), eventNotHandledErr);
    EXPECT_EQ(sendHotKeyPressed(own, 2), eventNotHandledErr);
    eventManager().parameterError = paramErr;
    EXPECT_EQ(sendHotKeyPressed(own, 1), paramErr);
    eventManager().parameterError = noErr;
    key.reset();
    EXPECT_EQ(sendHotKeyPressed(own, 1), eventNotHandledErr);
    EXPECT_EQ(presses, 0);
}

TEST_F(MacHotKeys, AnActionMayRemoveItsOwnKey) {
    std::unique_ptr<HotKey> key;
    const auto kept = std::make_shared<int>(0);
    key = adapter.add(1, commandShiftR, [&key, kept] {
        key.reset();
        ++*kept;
    });
    EXPECT_EQ(sendHotKeyPressed(own, 1), noErr);
    EXPECT_EQ(*kept, 1);
}

TEST_F(MacHotKeys, GiveNoKeyForARefusedCombination) {
    eventManager().registrationError = eventHotKeyExistsErr;
    EXPECT_EQ(add(1), nullptr);
    eventManager().registrationError = noErr;
    for (const HotKeyCombo combo : {HotKeyCombo{-1, 768}, HotKeyCombo{15, -1}, HotKeyCombo{1LL << 32, 768}}) {
        EXPECT_EQ(add(1, combo), nullptr);
    }
    EXPECT_EQ(sendHotKeyPressed(own, 1), eventNotHandledErr);
}

} // namespace
} // namespace vantrel::fake
