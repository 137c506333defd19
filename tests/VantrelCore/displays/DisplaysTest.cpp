// Names, identities, geometry and stability of desks: pure decisions.
#include "VantrelCore/displays/DisplayGeometry.h"
#include "VantrelCore/displays/DisplayIdentity.h"
#include "VantrelCore/displays/DisplayLabels.h"
#include "VantrelCore/displays/DisplayNaming.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/displays/MissionControlConfig.h"
#include "VantrelCore/displays/SnapshotStabilityGate.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <functional>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre, testing::Pair;
using enum MissionControlConfig::Classification;

DisplayInfo monitor(const std::string& uuid, const std::string& name, double x) {
    return {uuid, name, {{x, 0}, {100, 100}}, false, std::nullopt, std::nullopt};
}

TEST(DisplayNaming, NumbersOrPlacesDisplaysOfTheSameName) {
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

TEST(DisplayGeometry, UsableFrameSubtractsTheMarginsOfTheFlippedScreen) {
    const Rect display{{1440, -180}, {1920, 1080}};
    const Rect screen{{1440, 0}, {1920, 1080}};
    const std::tuple<const char*, Rect, Rect> cases[] = {
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

TEST(DisplayGeometry, ClampShrinksThenShifts) {
    const Rect bounds{{-100, 50}, {200, 100}};
    const std::tuple<const char*, Rect, Rect> cases[] = {
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

TEST(DisplayIdentity, RecognisesAMissingSerialInWellFormedIdentities) {
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

TEST(DisplayIdentity, DiagnosesExternalDisplaysWithoutASerial) {
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

// The display meant, or the refusal.
std::string meant(const char* called, const std::vector<std::vector<DisplayInfo>>& desks) {
    const auto found = DisplayLabels::resolve(called, desks);
    return found ? found->uuid + " " + found->name : found.error();
}

TEST(DisplayLabels, AreUniqueEvenWhenANameLooksLikeALabel) {
    EXPECT_THAT(DisplayLabels::of({monitor("a", "Twin", 9), monitor("b", "Twin", 0),
                                   monitor("c", "twin (LEFT)", 5), monitor("d", "Other", 7)}),
                ElementsAre(Pair("a", "Twin (right)"), Pair("b", "Twin (left)"), Pair("c", "twin (LEFT) 2"),
                            Pair("d", "Other")));
}

TEST(DisplayLabels, ResolveToOneDisplayOrListTheKnownOnes) {
    const std::vector<DisplayInfo> here{monitor("L", "Panel", 0), monitor("a", "Office 24", 10),
                                        monitor("b", "Office 24", 20)};
    const std::vector<DisplayInfo> home{monitor("a", "Office 24", 0), monitor("t", "TV", 10)};
    const std::vector<DisplayInfo> studio{monitor("b", "Office 24", 5), monitor("z", "Office 24", 0)};
    const std::pair<const char*, const char*> cases[] = {
        {" office 24 (RIGHT) ", "b Office 24 (right)"},
        {"Office 24 (left)", "a Office 24 (left)"},
        {"T", "t TV"},
        {"pan", "L Panel"},
        {"Z", "z Office 24 (left)"},
        // At home it is the only one of that name, but nobody sits there.
        {"Office 24", "\"Office 24\" matches more than one display: Office 24 (left), Office 24 (right). "
                      "Name one of them."},
        {"Offi",
         "\"Offi\" matches more than one display: Office 24 (left), Office 24 (right). Name one of them."},
        {"", "No display \"\" is known. Known displays: Panel, Office 24 (left) (a), Office 24 (right), TV, "
             "Office 24 (left) (z)."},
    };
    for (const auto& [called, expected] : cases) {
        EXPECT_EQ(meant(called, {here, home, studio}), expected) << called;
    }
    EXPECT_EQ(meant("TV", {}), "No display \"TV\" is known.");
}

DisplayInfo named(const std::string& name, double x, bool isBuiltin = false) {
    return {name + std::to_string(x), name, {{x, 0}, {100, 100}}, isBuiltin, std::nullopt, std::nullopt};
}

// The expected values are the first 32 characters of what sha256sum prints for the text in the comment, with
// the separator as the two bytes C2 A7.
TEST(DisplayTopology, ConfigIDHashesIdentityPositionAndSize) {
    // (empty)
    EXPECT_EQ(DisplayTopology::configID({}), "e3b0c44298fc1c149afbf4c8996fb924");
    // A|-1920,0,1920x1080§B|0,-5,1440x900
    EXPECT_EQ(DisplayTopology::configID(
                  {displayOf("B", {{0.9, -5.9}, {1440, 900}}), displayOf("A", {{-1920, 0}, {1920, 1080}})}),
              "a7384f4c85f66a002e0d366fa9ff39da");
    // 10A3C6E2-0000-0000-2A1E-0104B53C2278|0,0,5120x2880§37D8832A-2D66-02CA-B9F7-8F30A301B230|5120,1200,1728x1117
    // §display-7|-1080,-420,1080x1920
    EXPECT_EQ(DisplayTopology::configID(
                  {displayOf("37D8832A-2D66-02CA-B9F7-8F30A301B230", {{5120, 1200}, {1728, 1117}}),
                   displayOf("display-7", {{-1080, -420}, {1080, 1920}}),
                   displayOf("10A3C6E2-0000-0000-2A1E-0104B53C2278", {{0, 0}, {5120, 2880}})}),
              "652f20198ed41db07cd1a1810438623e");
}

TEST(DisplayTopology, ConfigNameListsExternalDisplaysThenBuiltInOnes) {
    EXPECT_EQ(DisplayTopology::configName({}), "");
    EXPECT_EQ(DisplayTopology::configName({named("Z", 0, true), named("Studio Display", 2),
                                           named("Studio Display", 1), named("B", 4, true),
                                           named("Alpha Monitor", 3)}),
              "Alpha Monitor + Studio Display (right) + Studio Display (left) + Z + B");
}

TEST(DisplayTopology, NamesAnUnknownDisplayByItsNumber) {
    const std::vector<ActiveDisplay> active{{.id = 1, .bounds = {}, .uuid = "U1"}};
    EXPECT_EQ(DisplayTopology::uuid(1, active), "U1");
    EXPECT_EQ(DisplayTopology::uuid(7, active), "display-7");
}

TEST(DisplayTopology, JoinsDisplaysScreensAndHints) {
    const Rect lcd{{0, 0}, {1440, 900}};
    const Rect alpha{{1440, -180}, {1920, 1080}};
    const Rect left{{-800, 0}, {800, 600}};
    const Rect below{{0, 900}, {640, 480}};
    const std::vector<ActiveDisplay> active{{5, true, lcd, "U5"},
                                            {2, false, alpha, std::nullopt},
                                            {9, false, left, "U9"},
                                            {3, true, below, "U3"}};
    const std::vector<Screen> screens{
        {std::nullopt, "Nobody's", {}, {}},
        {2, "Alpha Monitor", {{1440, 0}, {1920, 1080}}, {{1440, 70}, {1920, 985}}},
        {5, "Color LCD", lcd, lcd}};
    const std::vector<EdidHint> hints{{"Alpha Monitor", "old"},
                                      {"Alpha Monitor", "E2"},
                                      {"Alpha Monitor", std::nullopt},
                                      {std::nullopt, "E0"},
                                      {"External Display", "E9"}};
    EXPECT_THAT(DisplayTopology::displays(active, screens, hints),
                ElementsAre(DisplayInfo{"U5", "Color LCD", lcd, true, std::nullopt, lcd},
                            DisplayInfo{"display-2", "Alpha Monitor", alpha, false, "E2",
                                        Rect{{1440, -155}, {1920, 985}}},
                            DisplayInfo{"U9", "External Display", left, false, "E9", std::nullopt},
                            DisplayInfo{"U3", "Built-in Display", below, true, std::nullopt, std::nullopt}));
}

TEST(MissionControlConfig, AnyBadSettingLosesAndWinningNeedsBothKnown) {
    const auto classify = [](std::optional<bool> separateSpaces, std::optional<bool> autoRearrangeSpaces) {
        return MissionControlConfig{separateSpaces, autoRearrangeSpaces}.classification();
    };
    EXPECT_EQ(classify(true, false), winning);
    for (const auto& [separate, rearrange] : std::vector<std::pair<std::optional<bool>, std::optional<bool>>>{
             {true, true}, {false, false}, {false, std::nullopt}, {std::nullopt, true}}) {
        EXPECT_EQ(classify(separate, rearrange), losing);
    }
    EXPECT_EQ(classify(true, std::nullopt), unknown);
    EXPECT_EQ(classify(std::nullopt, false), unknown);
}

// A layout whose single window stands at the letter's place.
Layout at(char letter) {
    return layoutOf({windowOf("app", {{static_cast<double>(letter), 0}, {}})});
}

// Feeds one observation per letter; returns the letter where the gate passed it, else '.'.
std::string passed(int required, const std::string& observations) {
    SnapshotStabilityGate gate(required);
    std::string result;
    for (const char letter : observations) {
        const auto saved = gate.observe(at(letter), at('S'));
        result += saved ? static_cast<char>(saved->windows[0].frame.origin.x) : '.';
    }
    return result;
}

TEST(SnapshotStabilityGate, PassesAnUnstoredLayoutSeenOftenEnoughInARow) {
    const std::tuple<int, std::string, std::string> cases[] = {
        // After passing, the count starts over.
        {3, "ABABAAAAAA", "......A..A"},
        {4, "AAAA", "...A"},
        {2, "AA", ".A"},
        {1, "AA", ".A"},
        {-5, "AA", ".A"},
        {2, "SSSS", "...."},
        // Seeing the stored layout starts the count again.
        {3, "AASAAA", ".....A"},
    };
    for (const auto& [required, observations, expected] : cases) {
        EXPECT_EQ(passed(required, observations), expected) << required << " " << observations;
    }
}

TEST(SnapshotStabilityGate, ReturnsTheNewestObservationPerDeskAndName) {
    SnapshotStabilityGate gate(2);
    const Layout first = at('A');
    Layout second = first;
    second.windows[0].title = "New title";
    EXPECT_FALSE(gate.observe(first, std::nullopt));
    EXPECT_EQ(gate.observe(second, std::nullopt), second);

    EXPECT_FALSE(gate.observe(first, std::nullopt));
    second.configID = "other desk";
    EXPECT_FALSE(gate.observe(second, std::nullopt));
    second.layoutName = "Work";
    EXPECT_FALSE(gate.observe(second, std::nullopt));
    EXPECT_TRUE(gate.observe(second, std::nullopt));
}

} // namespace
} // namespace vantrel
