// How the demo decides whether a window is back.
#include "tools/demo/DemoTable.h"

#include <gmock/gmock.h>

namespace vantrel::tools {
namespace {

WindowStory storyOf(const std::optional<Rect>& after, Size increment = {1, 1}) {
    return {.name = "Notes",
            .program = "editor",
            .before = {{100, 100}, {600, 400}},
            .unplugged = std::nullopt,
            .after = after,
            .increment = increment};
}

WindowStory minimised(const std::string& stateAfter) {
    WindowStory story = storyOf(Rect{{100, 100}, {600, 400}});
    story.stateBefore = "minimised";
    story.stateAfter = stateAfter;
    return story;
}

TEST(DemoTable, AWindowIsBackWithinTwoPointsOrOneSizeIncrement) {
    constexpr Size characters{8, 17};
    const std::vector<std::pair<WindowStory, Verdict>> rows{
        {storyOf(Rect{{102, 98}, {602, 398}}), Verdict::back},
        {storyOf(Rect{{103, 100}, {600, 400}}), Verdict::away},
        {storyOf(Rect{{100, 100}, {600, 403}}), Verdict::away},
        {storyOf(std::nullopt), Verdict::gone},
        {storyOf(Rect{{100, 100}, {607, 384}}, characters), Verdict::nearest},
        {storyOf(Rect{{100, 100}, {608, 400}}, characters), Verdict::away},
        {storyOf(Rect{{107, 100}, {600, 400}}, characters), Verdict::away},
        {minimised("minimised"), Verdict::back},
        {minimised(""), Verdict::otherState},
    };
    for (const auto& [story, verdict] : rows) {
        EXPECT_EQ(DemoTable::verdict(story), verdict) << DemoTable::text({story});
    }
    EXPECT_THAT(DemoTable::text({rows[1].first, rows[3].first}),
                testing::AllOf(testing::HasSubstr("3  NOT BACK"), testing::HasSubstr("-  GONE")));
}

} // namespace
} // namespace vantrel::tools
