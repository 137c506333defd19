#include "VantrelCore/scenes/SystemWallpaperCatalog.h"
#include "VantrelCore/scenes/WallpaperBaseline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using WallpaperBaseline::decide;

constexpr auto none = std::nullopt;

} // namespace

TEST(WallpaperBaseline, TheUsersPictureComesBackAfterAnyNumberOfScenes) {
    auto first = decide("a", "user", "D", {});
    EXPECT_EQ(first.action, WallpaperAction::Any(WallpaperAction::Set{"a"}));
    EXPECT_EQ(first.memory.baseline.at("D"), "user");
    first.memory.lastSet["D"] = "a";

    auto second = decide("b", "a", "D", first.memory);
    EXPECT_EQ(second.action, WallpaperAction::Any(WallpaperAction::Set{"b"}));
    EXPECT_EQ(second.memory, first.memory);
    second.memory.lastSet["D"] = "b";

    const auto last = decide(none, "b", "D", second.memory);
    EXPECT_EQ(last.action, WallpaperAction::Any(WallpaperAction::Restore{"user"}));
    EXPECT_EQ(last.memory, WallpaperMemory{});
}

TEST(WallpaperBaseline, APictureChosenMeanwhileIsNeverOverwrittenByAnOlderOne) {
    const WallpaperMemory memory{{{"D", "user"}, {"E", "other"}}, {{"D", "a"}, {"E", "a"}}};
    for (const auto& current : {std::optional<std::string>("chosen"), std::optional<std::string>()}) {
        EXPECT_EQ(decide(none, current, "D", memory),
                  (WallpaperBaseline::Decision{WallpaperAction::None{}, memory}));
    }
    // The next scene with a wallpaper notes the new choice instead.
    EXPECT_EQ(decide("b", "chosen", "D", memory).memory.baseline.at("D"), "chosen");
    EXPECT_EQ(decide("b", "chosen", "D", memory).memory.baseline.at("E"), "other");
}

TEST(WallpaperBaseline, WithoutKnowingTheCurrentPictureNothingIsRemembered) {
    EXPECT_EQ(decide("a", none, "D", {}), (WallpaperBaseline::Decision{WallpaperAction::Set{"a"}, {}}));
    EXPECT_EQ(decide(none, "user", "D", {}), (WallpaperBaseline::Decision{WallpaperAction::None{}, {}}));
}

TEST(SystemWallpaperCatalog, ListsThePicturesOfAFolder) {
    using namespace SystemWallpaperCatalog;
    EXPECT_THAT(
        imagePaths({"sonoma.heic", "Radial.JPG", ".hidden.png", "notes.txt", "Folder", "Abstract 2.tiff"}),
        ElementsAre("/System/Library/Desktop Pictures/Abstract 2.tiff",
                    "/System/Library/Desktop Pictures/Radial.JPG",
                    "/System/Library/Desktop Pictures/sonoma.heic"));
    EXPECT_EQ(displayName("/System/Library/Desktop Pictures/Abstract 2.5.tiff"), "Abstract 2.5");
}

} // namespace vantrel
