#include "VantrelCore/windows/NormalFrames.h"

#include <gtest/gtest.h>

namespace vantrel {

TEST(NormalFrames, KnowsWhereAMaximizedWindowReturnsToFromCapturesAndRestores) {
    constexpr WindowID id{1};
    const Rect first{{10, 20}, {300, 200}};
    const Rect second{{50, 60}, {400, 300}};
    LiveWindow ordinary;
    ordinary.id = id;
    ordinary.record.frame = first;
    LiveWindow maximized;
    maximized.id = id;
    maximized.record.frame = {{0, 0}, {1920, 1080}};
    maximized.record.states = {.isMaximizedHorizontally = true, .isMaximizedVertically = true};
    const auto remembered = [&](const NormalFrames& frames) {
        return frames.recordOf(maximized).normalFrame;
    };

    NormalFrames frames;
    frames.remember({maximized});
    EXPECT_FALSE(remembered(frames)) << "it was never seen as an ordinary window";
    frames.remember({ordinary});
    frames.remember({maximized});
    EXPECT_EQ(remembered(frames), first);

    Layout layout;
    layout.windows.push_back(maximized.record);
    layout.windows.back().normalFrame = second;
    const RestoreReport::Move move{.window = id, .from = first, .target = maximized.record.frame};
    RestoreReport report;
    RestoreReport::Item& item = report.items.emplace_back();
    item.outcome.kind = RestoreReport::Kind::failed;
    item.saved = 0;
    item.move = move;
    frames.remember(layout, report);
    EXPECT_EQ(remembered(frames), first) << "the restore failed";
    item.outcome.kind = RestoreReport::Kind::restored;
    frames.remember(layout, report);
    EXPECT_EQ(remembered(frames), second);

    frames.remember(std::vector<LiveWindow>{});
    EXPECT_FALSE(remembered(frames)) << "the window was closed";
}

} // namespace vantrel
