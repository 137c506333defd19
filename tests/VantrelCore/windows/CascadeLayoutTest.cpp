#include "VantrelCore/windows/CascadeLayout.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace vantrel {
namespace {

using testing::ElementsAre;

const Rect screen{{100, 25}, {1000, 800}};

WindowRecord window(Size size, std::int64_t zOrder) {
    return windowOf("app", {{}, size}, "", zOrder);
}

TEST(CascadeLayout, EveryWindowStandsAStepInFrontOfTheOneBehindItAtASizeThatTheScreenHolds) {
    const Size size{500, 400};
    EXPECT_THAT(CascadeLayout::fallbackFrames(
                    {window(size, 0), window({0, 0}, 2), window({5000, 100}, 1), window(size, 2)}, screen),
                ElementsAre(Rect{{184, 109}, size}, Rect{{128, 53}, {600, 560}}, Rect{{100, 81}, {1000, 100}},
                            Rect{{100, 25}, size}));
    EXPECT_THAT(CascadeLayout::fallbackFrames({window(size, 0)}, Rect{}), ElementsAre(Rect{{}, size}));
}

RC_GTEST_PROP(CascadeLayout, EveryWindowIsOnTheScreenAndAsManyAsFitShowTheirTitleBar, ()) {
    const auto count = *rc::gen::inRange<std::size_t>(1, 60);
    const Size size{*rc::gen::inRange(1, 1200) / 1.0, *rc::gen::inRange(1, 900) / 1.0};
    const auto frames = CascadeLayout::fallbackFrames(std::vector(count, window(size, 0)), screen);
    const auto rows = CascadeLayout::positionCount(screen.height() - size.height, CascadeLayout::defaultStep);
    for (std::size_t a = 0; a < count; ++a) {
        RC_ASSERT(intersection(frames[a], screen) == frames[a]);
        for (std::size_t b = a + 1; b < std::min(count, a + rows); ++b) {
            RC_ASSERT(frames[a].minY() != frames[b].minY());
        }
    }
}

} // namespace
} // namespace vantrel
