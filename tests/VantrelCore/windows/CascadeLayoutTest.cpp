#include "VantrelCore/windows/CascadeLayout.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;

const Rect screen{{100, 25}, {1000, 800}};

WindowRecord window(Size size, std::int64_t zOrder) {
    return windowOf("app", {{}, size}, "", zOrder);
}

TEST(CascadeLayout, EveryWindowStandsAStepInFrontOfTheOneBehindItAtASizeThatTheScreenHolds) {
    // Three steps fit below it, more beside it.
    const Size size{500, 740};
    EXPECT_THAT(CascadeLayout::fallbackFrames(
                    {window(size, 0), window({0, 0}, 1), window({5000, 100}, 2), window(size, 2)}, screen),
                ElementsAre(Rect{{184, 25}, size}, Rect{{156, 81}, {600, 560}}, Rect{{100, 53}, {1000, 100}},
                            Rect{{100, 25}, size}));
    EXPECT_THAT(CascadeLayout::fallbackFrames({window(size, 0)}, Rect{}), ElementsAre(Rect{{}, size}));
}

} // namespace
} // namespace vantrel
