// Names, usable areas and identities of displays: tables of pure decisions.
#include "VantrelCore/displays/DisplayNaming.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/displays/DisplayIdentity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

DisplayInfo monitor(const std::string& uuid, const std::string& name, double x) {
    DisplayInfo info;
    info.uuid = uuid;
    info.name = name;
    info.frame = {{x, 0}, {100, 100}};
    return info;
}

TEST(DisplayNaming, DisplaysOfOneNameAreToldApartFromLeftToRight) {
    EXPECT_THAT(DisplayNaming::labels({monitor("a", "Same", 0), monitor("b", "Other", 1)}), IsEmpty());
    EXPECT_THAT(
        DisplayNaming::labels({monitor("a", "Same", 5), monitor("b", "Same", -5), monitor("c", "Other", 0)}),
        ElementsAre(Pair("a", "Same (right)"), Pair("b", "Same (left)")));
    EXPECT_THAT(
        DisplayNaming::labels({monitor("a", "Same", 3), monitor("b", "Same", 1), monitor("c", "Same", 2)}),
        ElementsAre(Pair("a", "Same (right)"), Pair("b", "Same (left)"), Pair("c", "Same (center)")));
    // Stacked above one another they keep the order in which they are listed.
    EXPECT_THAT(DisplayNaming::labels({monitor("d", "Same", 0), monitor("c", "Same", 0),
                                       monitor("b", "Same", 0), monitor("a", "Same", -1)}),
                ElementsAre(Pair("a", "Same (1)"), Pair("b", "Same (4)"), Pair("c", "Same (3)"),
                            Pair("d", "Same (2)")));
}

TEST(DisplayGeometry, UsableFrameTakesTheMarginsOfTheFlippedScreenOffTheDisplay) {
    const Rect display{{1440, -180}, {1920, 1080}};
    const Rect screen{{1440, 0}, {1920, 1080}};

    struct Case {
        Rect visible;
        Rect usable;
    };

    const std::vector<Case> cases = {
        {screen, display},
        // Menu bar of 25 at the top, dock of 70 at the bottom.
        {{{1440, 70}, {1920, 985}}, {{1440, -155}, {1920, 985}}},
        // Docks of 80 at the left and 60 at the right.
        {{{1520, 0}, {1780, 1080}}, {{1520, -180}, {1780, 1080}}},
        // Reaching beyond the screen adds nothing.
        {{{1400, -40}, {2000, 1160}}, display},
    };
    for (const auto& [visible, usable] : cases) {
        EXPECT_EQ(DisplayGeometry::usableFrame(display, screen, visible), usable);
    }
    // Margins of a screen that is larger than the display by now leave nothing, not a negative size.
    EXPECT_EQ(
        DisplayGeometry::usableFrame({{0, 0}, {100, 100}}, {{0, 0}, {1000, 1000}}, {{600, 600}, {10, 10}})
            .size,
        (Size{0, 0}));
}

TEST(DisplayGeometry, ClampShrinksThenShiftsIntoTheBounds) {
    const Rect bounds{{-100, 50}, {200, 100}};

    struct Case {
        Rect rect;
        Rect clamped;
    };

    const std::vector<Case> cases = {
        {{{-50, 60}, {20, 20}}, {{-50, 60}, {20, 20}}},       {{{-500, 0}, {20, 20}}, {{-100, 50}, {20, 20}}},
        {{{500, 500}, {20, 30}}, {{80, 120}, {20, 30}}},      {{{90, 140}, {20, 20}}, {{80, 130}, {20, 20}}},
        {{{0, 100}, {1000, 1000}}, {{-100, 50}, {200, 100}}},
    };
    for (const auto& [rect, clamped] : cases) {
        EXPECT_EQ(DisplayGeometry::clamp(rect, bounds), clamped);
    }
    const Rect anywhere{{900, 900}, {10, 10}};
    EXPECT_EQ(DisplayGeometry::clamp(anywhere, {{0, 0}, {0, 100}}), anywhere);
    EXPECT_EQ(DisplayGeometry::clamp(anywhere, {{0, 0}, {100, -1}}), anywhere);
}

TEST(DisplayIdentity, SeesAMissingSerialOnlyInWellFormedIdentities) {
    EXPECT_TRUE(DisplayIdentity::serialFieldMissing("10A3C6E2-0000-0000-2A1E-0104B53C2278"));
    EXPECT_TRUE(DisplayIdentity::serialFieldMissing("10a3c6e2-0000-0000-2a1e-0104b53c2278"));
    for (const char* text : {
             "",
             "10A3C6E2-0001-0000-2A1E-0104B53C2278",
             "10A3C6E2-0000-1000-2A1E-0104B53C2278",
             "10A3C6E2-0000-0000-2A1E-0104B53C227",
             "10A3C6E2-0000-0000-2A1E-0104B53C22780",
             "10A3C6E2-0000-0000-2A1E-0104B53C2278-",
             "10A3C6E20000-0000-2A1E-0104B53C2278",
             "10A3C6EG-0000-0000-2A1E-0104B53C2278",
             "10A3C6E2-0000-0000-2A1E_0104B53C2278",
             "10A3C6E-20000-0000-2A1E-0104B53C2278",
         }) {
        EXPECT_FALSE(DisplayIdentity::serialFieldMissing(text)) << text;
    }
}

TEST(DisplayIdentity, DiagnosesExternalDisplaysWithoutSerialByTheirLabel) {
    const std::string withoutSerial = "10A3C6E2-0000-0000-2A1E-0104B53C2278";
    auto left = monitor("a", "Twin", 0);
    auto right = monitor("b", "Twin", 1);
    auto single = monitor("c", "Single", 2);
    auto builtin = monitor("d", "Panel", 3);
    left.edidUUID = single.edidUUID = builtin.edidUUID = withoutSerial;
    builtin.isBuiltin = true;
    EXPECT_THAT(DisplayIdentity::diagnoses({left, right, single, builtin}),
                ElementsAre(Pair("a", "Twin (left) reports no unique serial in its display identity."),
                            Pair("c", "Single reports no unique serial in its display identity.")));
}

} // namespace

} // namespace vantrel
