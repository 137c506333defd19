#include "VantrelCore/displays/DisplayTopology.h"

#include "tests/VantrelCore/DeskRecords.h"
#include "tests/simulated/SimulatedDesk.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;

DisplayInfo named(const std::string& name, double x, bool isBuiltin = false) {
    return {name + std::to_string(x), name, {{x, 0}, {100, 100}}, isBuiltin, std::nullopt, std::nullopt};
}

// The expected values are the first 32 characters of what sha256sum prints for the text in the comment, with
// the separator as the two bytes C2 A7.
TEST(DisplayTopology, ConfigIDIsTheHashOfEveryDisplaysIdentityPlaceAndSize) {
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

TEST(DisplayTopology, ConfigNameListsExternalDisplaysByNameThenBuiltInOnes) {
    EXPECT_EQ(DisplayTopology::configName({}), "");
    EXPECT_EQ(DisplayTopology::configName({named("Z", 0, true), named("Studio Display", 2),
                                           named("Studio Display", 1), named("B", 4, true),
                                           named("Alpha Monitor", 3)}),
              "Alpha Monitor + Studio Display (right) + Studio Display (left) + Z + B");
}

TEST(DisplayTopology, ADisplayThatIsNotThereIsCalledByItsNumber) {
    simulated::SimulatedTime time;
    simulated::SimulatedDesk desk(time, simulated::DeskSetup::named("laptop"));
    EXPECT_EQ(DisplayTopology::uuid(1, desk.displayServices()), "37D8832A-2D66-02CA-B9F7-8F30A301B230");
    EXPECT_EQ(DisplayTopology::uuid(7, desk.displayServices()), "display-7");
}

TEST(DisplayTopology, DescribesActiveDisplaysByWhatThePlatformKnowsOfThem) {
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

} // namespace

} // namespace vantrel
