#include "VantrelCore/windows/CascadeLayout.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace vantrel {
namespace {

using testing::ElementsAre;

const Rect screen{{100, 25}, {1000, 800}};

WindowRecord window(Size size, std::int64_t zOrder) {
    WindowRecord record;
    record.frame.size = size;
    record.zOrder = zOrder;
    return record;
}

TEST(CascadeLayout, EveryWindowStandsAStepInFrontOfTheOneBehindIt) {
    const Size size{500, 400};
    EXPECT_THAT(CascadeLayout::fallbackFrames(
                    {window(size, 0), window(size, 2), window(size, 1), window(size, 2)}, screen),
                ElementsAre(Rect{{184, 109}, size}, Rect{{128, 53}, size}, Rect{{156, 81}, size},
                            Rect{{100, 25}, size}));
}

TEST(CascadeLayout, WindowsWithoutASizeGetOneAndLargeOnesAreCutToTheScreen) {
    EXPECT_THAT(CascadeLayout::fallbackFrames({window({0, 0}, 1), window({5000, 100}, 2)}, screen),
                ElementsAre(Rect{{128, 53}, {600, 560}}, Rect{{100, 25}, {1000, 100}}));
}

TEST(CascadeLayout, AnEmptyScreenMovesNothing) {
    const auto record = window({300, 200}, 0);
    EXPECT_THAT(CascadeLayout::fallbackFrames({record}, Rect{}), ElementsAre(record.frame));
    EXPECT_TRUE(CascadeLayout::fallbackFrames({}, screen).empty());
}

RC_GTEST_PROP(CascadeLayout, EveryWindowIsOnTheScreenAndAsManyAsFitShowTheirTitleBar, ()) {
    const auto count = *rc::gen::inRange<std::size_t>(1, 60);
    const Size size{*rc::gen::inRange(1, 1200) / 1.0, *rc::gen::inRange(1, 900) / 1.0};
    const auto frames = CascadeLayout::fallbackFrames(std::vector(count, window(size, 0)), screen);
    for (const auto& frame : frames) {
        RC_ASSERT(frame.minX() >= screen.minX() && frame.maxX() <= screen.maxX());
        RC_ASSERT(frame.minY() >= screen.minY() && frame.maxY() <= screen.maxY());
    }
    const auto rows = CascadeLayout::positionCount(screen.height() - size.height, CascadeLayout::defaultStep);
    for (std::size_t a = 0; a < count; ++a) {
        for (std::size_t b = a + 1; b < std::min(count, a + rows); ++b) {
            RC_ASSERT(frames[a].minY() != frames[b].minY());
        }
    }
}

} // namespace
} // namespace vantrel
