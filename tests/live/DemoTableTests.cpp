// How the demonstration judges where a window stands.
#include "tests/live/demo/DemoTable.h"

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

const Rect place{{100, 100}, {600, 400}};

WindowStory storyOf(const std::optional<Rect>& after, Size increment = {1, 1}) {
    return {.name = "Notes",
            .program = "editor",
            .before = place,
            .unplugged = std::nullopt,
            .after = after,
            .increment = increment};
}

TEST(DemoTable, CallsAWindowBackWithinTwoPointsOnly) {
    EXPECT_EQ(DemoTable::verdict(storyOf(place)), Verdict::back);
    EXPECT_EQ(DemoTable::verdict(storyOf(Rect{{102, 98}, {602, 398}})), Verdict::back);
    EXPECT_EQ(DemoTable::verdict(storyOf(Rect{{103, 100}, {600, 400}})), Verdict::away);
    EXPECT_EQ(DemoTable::verdict(storyOf(Rect{{100, 100}, {600, 403}})), Verdict::away);
    EXPECT_EQ(DemoTable::verdict(storyOf(std::nullopt)), Verdict::gone);
}

TEST(DemoTable, GrantsAProgramLessThanOneOfItsOwnStepsInSizeButNotInPlace) {
    const Size characters{8, 17};
    EXPECT_EQ(DemoTable::verdict(storyOf(Rect{{100, 100}, {607, 384}}, characters)), Verdict::nearest);
    EXPECT_EQ(DemoTable::verdict(storyOf(Rect{{100, 100}, {608, 400}}, characters)), Verdict::away);
    EXPECT_EQ(DemoTable::verdict(storyOf(Rect{{107, 100}, {600, 400}}, characters)), Verdict::away);
}

TEST(DemoTable, NamesWhatIsNotBack) {
    const std::string text = DemoTable::text({storyOf(Rect{{150, 100}, {600, 400}}), storyOf(std::nullopt)});
    EXPECT_THAT(text, testing::HasSubstr("50  NOT BACK"));
    EXPECT_THAT(text, testing::HasSubstr("-  GONE"));
}

} // namespace
} // namespace vantrel::live
