#include "Vantrel/platform/x11/WindowMarks.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

constexpr xcb_window_t window = 0x400007;

TEST(WindowMarks, AWindowKeepsItsMarkAsLongAsItBearsItAndALaterOneWithItsIdIsAnother) {
    WindowMarks marks;
    const auto first = marks.assign(window, false, marks.now());
    EXPECT_TRUE(first.mustSelect);
    const auto again = marks.assign(window, true, marks.now());
    EXPECT_FALSE(again.mustSelect);
    EXPECT_EQ(again.mark, first.mark);
    EXPECT_TRUE(marks.isSame(window, true, first.mark));

    // A later one with the same id, before and after it was captured.
    EXPECT_FALSE(marks.isSame(window, false, first.mark));
    const auto second = marks.assign(window, false, marks.now());
    EXPECT_TRUE(second.mustSelect);
    EXPECT_FALSE(marks.isSame(window, true, first.mark));
    EXPECT_TRUE(marks.isSame(window, true, second.mark));
}

TEST(WindowMarks, TwoCapturesAtTheSameTimeAgreeOnAWindowAndCleaningUpSparesIt) {
    WindowMarks marks;
    const auto asked = marks.now();
    const auto one = marks.assign(window, false, asked);
    const auto other = marks.assign(window, false, asked);
    EXPECT_FALSE(other.mustSelect);
    EXPECT_EQ(one.mark, other.mark);
    marks.keepOnly({}, asked);
    EXPECT_TRUE(marks.isSame(window, true, other.mark));
}

TEST(WindowMarks, AForgottenWindowIsNotTakenForItsOldSelfWhenItComesBack) {
    WindowMarks marks;
    const auto before = marks.assign(window, false, marks.now());
    marks.keepOnly({}, marks.now());
    EXPECT_FALSE(marks.isSame(window, true, before.mark));
    const auto after = marks.assign(window, true, marks.now());
    EXPECT_FALSE(after.mustSelect);
    EXPECT_NE(after.mark, before.mark);
}

} // namespace
} // namespace vantrel
