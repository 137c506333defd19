// Names, usable areas and identities of displays: tables of pure decisions.
#include "VantrelCore/displays/DisplayNaming.h"

#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/displays/DisplayIdentity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::Pair;

DisplayInfo monitor(const std::string& uuid, const std::string& name, double x) {
    return {uuid, name, {{x, 0}, {100, 100}}, false, std::nullopt, std::nullopt};
}

TEST(DisplayNaming, DisplaysOfOneNameAreToldApartFromLeftToRight) {
    EXPECT_THAT(
        DisplayNaming::labels({monitor("a", "Two", 5), monitor("b", "Two", -5), monitor("c", "One", 0),
                               monitor("d", "Three", 3), monitor("e", "Three", 1), monitor("f", "Three", 2)}),
        ElementsAre(Pair("a", "Two (right)"), Pair("b", "Two (left)"), Pair("d", "Three (right)"),
                    Pair("e", "Three (left)"), Pair("f", "Three (center)")));
    // Stacked above one another they keep the order in which they are listed.
    EXPECT_THAT(DisplayNaming::labels({monitor("d", "Same", 0), monitor("c", "Same", 0),
                                       monitor("b", "Same", 0), monitor("a", "Same", -1)}),
                ElementsAre(Pair("a", "Same (1)"), Pair("b", "Same (4)"), Pair("c", "Same (3)"),
                            Pair("d", "Same (2)")));
}

TEST(DisplayGeometry, UsableFrameTakesTheMarginsOfTheFlippedScreenOffTheDisplay) {
    const Rect display{{1440, -180}, {1920, 1080}};
    const Rect screen{{1440, 0}, {1920, 1080}};
    const struct {
        const char* name;
        Rect visible;
        Rect usable;
    } cases[] = {
        {"menu bar of 25, dock of 70 below", {{1440, 70}, {1920, 985}}, {{1440, -155}, {1920, 985}}},
        {"docks of 80 left and 60 right", {{1520, 0}, {1780, 1080}}, {{1520, -180}, {1780, 1080}}},
        {"reaching beyond the screen", {{1400, -40}, {2000, 1160}}, display},
    };
    for (const auto& [name, visible, usable] : cases) {
        EXPECT_EQ(DisplayGeometry::usableFrame(display, screen, visible), usable) << name;
    }
    // Margins of a screen that is larger than the display by now leave nothing, not a negative size.
    EXPECT_EQ(
        DisplayGeometry::usableFrame({{0, 0}, {100, 100}}, {{0, 0}, {1000, 1000}}, {{600, 600}, {10, 10}})
            .size,
        (Size{0, 0}));
}

TEST(DisplayGeometry, ClampShrinksThenShiftsIntoTheBounds) {
    const Rect bounds{{-100, 50}, {200, 100}};
    const struct {
        const char* name;
        Rect rect;
        Rect clamped;
    } cases[] = {
        {"inside", {{-50, 60}, {20, 20}}, {{-50, 60}, {20, 20}}},
        {"left and above", {{-500, 0}, {20, 20}}, {{-100, 50}, {20, 20}}},
        {"over the edge", {{90, 140}, {20, 30}}, {{80, 120}, {20, 30}}},
        {"too large", {{0, 100}, {1000, 1000}}, bounds},
    };
    for (const auto& [name, rect, clamped] : cases) {
        EXPECT_EQ(DisplayGeometry::clamp(rect, bounds), clamped) << name;
    }
    EXPECT_EQ(DisplayGeometry::clamp(bounds, {{0, 0}, {0, 100}}), bounds);
    EXPECT_EQ(DisplayGeometry::clamp(bounds, {{0, 0}, {100, -1}}), bounds);
}

TEST(DisplayIdentity, SeesAMissingSerialOnlyInWellFormedIdentities) {
    EXPECT_TRUE(DisplayIdentity::serialFieldMissing("19A3f6E2-0000-0000-2A1E-0104B53C2278"));
    EXPECT_TRUE(DisplayIdentity::serialFieldMissing("10aFc6e2-0000-0000-2a1e-0104b53c2278"));
    for (const char* text : {
             "",
             "10A3C6E2-0001-0000-2A1E-0104B53C2278",
             "10A3C6E2-0000-1000-2A1E-0104B53C2278",
             "10A3C6E2-0000-0000-2A1E-0104B53C227",
             "10A3C6E2-0000-0000-2A1E-0104B53C22780",
             "10A3C6EG-0000-0000-2A1E-0104B53C2278",
             "10A3C6E2-0000-0000-2A1E_0104B53C2278",
             "10A3C6E-20000-0000-2A1E-0104B53C2278",
         }) {
        EXPECT_FALSE(DisplayIdentity::serialFieldMissing(text)) << text;
    }
}

TEST(DisplayIdentity, DiagnosesExternalDisplaysWithoutSerialByTheirLabel) {
    std::vector displays{monitor("a", "Twin", 0), monitor("b", "Single", 2), monitor("c", "Panel", 3),
                         monitor("d", "Twin", 1)};
    for (int i = 0; i < 3; ++i) {
        displays[static_cast<std::size_t>(i)].edidUUID = "10A3C6E2-0000-0000-2A1E-0104B53C2278";
    }
    displays[2].isBuiltin = true;
    EXPECT_THAT(DisplayIdentity::diagnoses(displays),
                ElementsAre(Pair("a", "Twin (left) reports no unique serial in its display identity."),
                            Pair("b", "Single reports no unique serial in its display identity.")));
}

} // namespace

} // namespace vantrel
