#include "Vantrel/platform/x11/HeldKeys.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(HeldKeys, IgnoresRepeatsButNoPressAfterARelease) {
    constexpr xcb_timestamp_t nearTheClocksEnd = 0xffffffffU - 500;
    HeldKeys keys;
    EXPECT_TRUE(keys.press(27, nearTheClocksEnd));
    EXPECT_FALSE(keys.press(27, nearTheClocksEnd + 660));
    EXPECT_FALSE(keys.press(27, nearTheClocksEnd + 700));
    EXPECT_TRUE(keys.press(39, nearTheClocksEnd + 700)) << "another key";
    keys.release(27);
    EXPECT_TRUE(keys.press(27, nearTheClocksEnd + 710));
    // The release of 39 went to another program.
    EXPECT_TRUE(keys.press(39, nearTheClocksEnd + 5000));
    EXPECT_FALSE(keys.press(39, nearTheClocksEnd + 5700));
}

} // namespace
} // namespace vantrel
