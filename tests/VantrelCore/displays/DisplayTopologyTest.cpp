#include "VantrelCore/displays/DisplayTopology.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

DisplayInfo display(const std::string& uuid, const Rect& frame) {
    DisplayInfo info;
    info.uuid = uuid;
    info.name = uuid;
    info.frame = frame;
    return info;
}

DisplayInfo named(const std::string& name, double x, bool isBuiltin = false) {
    auto info = display(name + std::to_string(x), {{x, 0}, {100, 100}});
    info.name = name;
    info.isBuiltin = isBuiltin;
    return info;
}

// The expected values are the first 32 characters of what sha256sum prints for the text in the comment, with
// the separator as the two bytes C2 A7.
TEST(DisplayTopology, ConfigIDIsTheHashOfEveryDisplaysIdentityPlaceAndSize) {
    // (empty)
    EXPECT_EQ(DisplayTopology::configID({}), "e3b0c44298fc1c149afbf4c8996fb924");
    // A|0,0,1920x1080
    EXPECT_EQ(DisplayTopology::configID({display("A", {{0, 0}, {1920, 1080}})}),
              "e47e89bd93d51cd7c17298380b02f90c");
    // A|-1920,0,1920x1080§B|0,-5,1440x900
    EXPECT_EQ(DisplayTopology::configID(
                  {display("B", {{0.9, -5.9}, {1440, 900}}), display("A", {{-1920, 0}, {1920, 1080}})}),
              "a7384f4c85f66a002e0d366fa9ff39da");
    // 10A3C6E2-0000-0000-2A1E-0104B53C2278|0,0,5120x2880§37D8832A-2D66-02CA-B9F7-8F30A301B230|5120,1200,1728x1117
    // §display-7|-1080,-420,1080x1920
    EXPECT_EQ(DisplayTopology::configID(
                  {display("37D8832A-2D66-02CA-B9F7-8F30A301B230", {{5120, 1200}, {1728, 1117}}),
                   display("display-7", {{-1080, -420}, {1080, 1920}}),
                   display("10A3C6E2-0000-0000-2A1E-0104B53C2278", {{0, 0}, {5120, 2880}})}),
              "652f20198ed41db07cd1a1810438623e");
}

TEST(DisplayTopology, ConfigIDIgnoresOrderAndNamesButNotPlaceSizeOrIdentity) {
    const std::vector<DisplayInfo> desk = {display("A", {{0, 0}, {1920, 1080}}),
                                           display("B", {{1920, 0}, {1440, 900}})};
    const auto id = DisplayTopology::configID(desk);
    const auto idAfter = [&](const std::function<void(std::vector<DisplayInfo>&)>& change) {
        auto changed = desk;
        change(changed);
        return DisplayTopology::configID(changed);
    };
    EXPECT_EQ(idAfter([](auto& displays) { std::ranges::reverse(displays); }), id);
    EXPECT_EQ(idAfter([](auto& displays) {
                  displays[0].name = "Other";
                  displays[0].isBuiltin = true;
                  displays[0].edidUUID = "E";
                  displays[0].visibleFrame = Rect{{0, 25}, {1920, 1055}};
                  displays[1].frame.origin.x += 0.5;
              }),
              id);
    EXPECT_NE(idAfter([](auto& displays) { displays[1].frame.origin.x += 1; }), id);
    EXPECT_NE(idAfter([](auto& displays) { displays[1].frame.origin.y -= 1; }), id);
    EXPECT_NE(idAfter([](auto& displays) { displays[0].frame.size.width -= 1; }), id);
    EXPECT_NE(idAfter([](auto& displays) { displays[0].frame.size.height += 1; }), id);
    EXPECT_NE(idAfter([](auto& displays) { displays[0].uuid = "C"; }), id);
    EXPECT_NE(idAfter([](auto& displays) { displays.pop_back(); }), id);
    // The same displays with their places exchanged.
    EXPECT_NE(idAfter([](auto& displays) { std::swap(displays[0].uuid, displays[1].uuid); }), id);
}

TEST(DisplayTopology, ConfigNameListsExternalDisplaysByNameThenBuiltInOnes) {
    EXPECT_EQ(DisplayTopology::configName({}), "");
    EXPECT_EQ(DisplayTopology::configName(
                  {named("Built-in Display", 0, true), named("Beta Monitor", 1), named("Alpha Monitor", 2)}),
              "Alpha Monitor + Beta Monitor + Built-in Display");
    EXPECT_EQ(DisplayTopology::configName(
                  {named("A", 0, true), named("Studio Display", 2), named("Studio Display", 1)}),
              "Studio Display (right) + Studio Display (left) + A");
    EXPECT_EQ(DisplayTopology::configName({named("Z", 0, true), named("M", 1), named("B", 2, true)}),
              "M + Z + B");
}

TEST(DisplayTopology, DescribesActiveDisplaysByWhatThePlatformKnowsOfThem) {
    const std::vector<ActiveDisplay> active = {
        {.id = 5, .isBuiltin = true, .bounds = {{0, 0}, {1440, 900}}, .uuid = "U5"},
        {.id = 2, .isBuiltin = false, .bounds = {{1440, -180}, {1920, 1080}}, .uuid = std::nullopt},
        {.id = 9, .isBuiltin = false, .bounds = {{-800, 0}, {800, 600}}, .uuid = "U9"},
        {.id = 3, .isBuiltin = true, .bounds = {{0, 900}, {640, 480}}, .uuid = "U3"},
    };
    const std::vector<Screen> screens = {
        {.displayID = std::nullopt, .localizedName = "Nobody's", .frame = {}, .visibleFrame = {}},
        {.displayID = 2,
         .localizedName = "Alpha Monitor",
         .frame = {{1440, 0}, {1920, 1080}},
         .visibleFrame = {{1440, 70}, {1920, 985}}},
        {.displayID = 5,
         .localizedName = "Color LCD",
         .frame = {{0, 0}, {1440, 900}},
         .visibleFrame = {{0, 0}, {1440, 900}}},
    };
    const std::vector<EdidHint> hints = {
        {.productName = "Alpha Monitor", .edidUUID = "old"},
        {.productName = "Alpha Monitor", .edidUUID = "E2"},
        {.productName = "Alpha Monitor", .edidUUID = std::nullopt},
        {.productName = std::nullopt, .edidUUID = "E0"},
        {.productName = "External Display", .edidUUID = "E9"},
    };
    const DisplayInfo lcd{.uuid = "U5",
                          .name = "Color LCD",
                          .frame = active[0].bounds,
                          .isBuiltin = true,
                          .edidUUID = std::nullopt,
                          .visibleFrame = active[0].bounds};
    const DisplayInfo alpha{.uuid = "display-2",
                            .name = "Alpha Monitor",
                            .frame = active[1].bounds,
                            .isBuiltin = false,
                            .edidUUID = "E2",
                            .visibleFrame = Rect{{1440, -155}, {1920, 985}}};
    const DisplayInfo external{.uuid = "U9",
                               .name = "External Display",
                               .frame = active[2].bounds,
                               .isBuiltin = false,
                               .edidUUID = "E9",
                               .visibleFrame = std::nullopt};
    const DisplayInfo builtin{.uuid = "U3",
                              .name = "Built-in Display",
                              .frame = active[3].bounds,
                              .isBuiltin = true,
                              .edidUUID = std::nullopt,
                              .visibleFrame = std::nullopt};
    EXPECT_THAT(DisplayTopology::displays(active, screens, hints),
                ElementsAre(lcd, alpha, external, builtin));
    EXPECT_THAT(DisplayTopology::displays({}, screens, hints), IsEmpty());
}

} // namespace

} // namespace vantrel
