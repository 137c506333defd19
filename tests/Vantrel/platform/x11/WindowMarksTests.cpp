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

TEST(WindowMarks, AMarkThatAFormerRunLeftOnTheWindowIsTakenOver) {
    WindowMarks marks;
    const auto before = marks.assign(window, false, marks.now());
    EXPECT_TRUE(before.mustWrite);
    WindowMarks nextRun;
    EXPECT_FALSE(nextRun.find(window, false, nextRun.now()));
    const auto after = nextRun.assign(window, false, nextRun.now(), before.mark);
    EXPECT_TRUE(after.mustSelect);
    EXPECT_FALSE(after.mustWrite);
    EXPECT_EQ(after.mark, before.mark);

    // A window that was hidden for a while and forgotten, and a later one with its id, which bears no mark.
    marks.keepOnly({}, marks.now());
    EXPECT_FALSE(marks.isSame(window, true, before.mark));
    EXPECT_EQ(marks.assign(window, true, marks.now(), before.mark).mark, before.mark);
    EXPECT_NE(marks.assign(window, false, marks.now()).mark, before.mark);
}

} // namespace
} // namespace vantrel
