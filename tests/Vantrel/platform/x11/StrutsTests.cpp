#include "Vantrel/platform/x11/Struts.h"

#include <array>
#include <gmock/gmock.h>
#include <limits>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A large monitor on the left, a lower one on its right, top edges aligned.
const Rect left{{0, 0}, {1280, 1024}};
const Rect right{{1280, 0}, {1600, 900}};
const Size screen{2880, 1024};

TEST(Struts, AreReadFromBothKindsOfProperty) {
    const std::array<std::uint32_t, 12> partial{0, 0, 30, 0, 0, 0, 0, 0, 1280, 2879, 0, 0};
    EXPECT_THAT(Struts::decode(partial),
                ElementsAre(Strut{.edge = Strut::Edge::top, .thickness = 30, .start = 1280, .end = 2880}));
    const std::array<std::uint32_t, 4> plain{0, 0, 0, 48};
    EXPECT_THAT(Struts::decode(plain), ElementsAre(Strut{.edge = Strut::Edge::bottom,
                                                         .thickness = 48,
                                                         .start = 0,
                                                         .end = std::numeric_limits<double>::infinity()}));
    const std::array<std::uint32_t, 3> nonsense{1, 2, 3};
    EXPECT_THAT(Struts::decode(nonsense), IsEmpty());
}

struct StrutCase {
    const char* name;
    std::vector<Strut> struts;
    Rect leftVisible;
    Rect rightVisible;
};

class StrutsOnTwoMonitors : public testing::TestWithParam<StrutCase> {};

TEST_P(StrutsOnTwoMonitors, ReserveSpaceOnTheMonitorTheyEndIn) {
    EXPECT_EQ(Struts::visibleFrame(left, screen, GetParam().struts), GetParam().leftVisible);
    EXPECT_EQ(Struts::visibleFrame(right, screen, GetParam().struts), GetParam().rightVisible);
}

INSTANTIATE_TEST_SUITE_P(
    Table, StrutsOnTwoMonitors,
    testing::Values(
        StrutCase{"None", {}, left, right},
        StrutCase{"TopOfTheRight", {{Strut::Edge::top, 30, 1280, 2880}}, left, {{1280, 30}, {1600, 870}}},
        // The lower monitor ends 124 above the screen's bottom.
        StrutCase{
            "BottomOfTheRight", {{Strut::Edge::bottom, 164, 1280, 2880}}, left, {{1280, 0}, {1600, 860}}},
        StrutCase{"BottomOfTheLeft", {{Strut::Edge::bottom, 40, 0, 1280}}, {{0, 0}, {1280, 984}}, right},
        StrutCase{"LeftEdgeOfTheRight", {{Strut::Edge::left, 1330, 0, 900}}, left, {{1330, 0}, {1550, 900}}},
        StrutCase{"RightEdgeOfTheLeft", {{Strut::Edge::right, 1650, 0, 1024}}, {{0, 0}, {1230, 1024}}, right},
        StrutCase{"TwoPanelsAtOneEdge",
                  {{Strut::Edge::top, 30, 0, 1280}, {Strut::Edge::top, 50, 0, 400}},
                  {{0, 50}, {1280, 974}},
                  right},
        StrutCase{"WholeEdge",
                  {{Strut::Edge::top, 20, 0, std::numeric_limits<double>::infinity()}},
                  {{0, 20}, {1280, 1004}},
                  {{1280, 20}, {1600, 880}}},
        StrutCase{"MoreThanThereIs", {{Strut::Edge::top, 1000000, 0, 2880}}, left, right},
        StrutCase{"NothingLeftBetweenTwo",
                  {{Strut::Edge::top, 700, 0, 1280}, {Strut::Edge::bottom, 700, 0, 1280}},
                  left,
                  right}),
    [](const auto& tested) { return tested.param.name; });

TEST(WorkArea, CountsOnlyForTheMonitorItSpeaksOf) {
    EXPECT_EQ(Struts::visibleFrame(left, std::nullopt), left);
    EXPECT_EQ(Struts::visibleFrame(left, Rect{{0, 24}, {2880, 1000}}), (Rect{{0, 24}, {1280, 1000}}));
    // xfwm4 4.18 gives the first monitor's area for the whole desk.
    EXPECT_EQ(Struts::visibleFrame(right, left), right);
}

} // namespace
} // namespace vantrel
