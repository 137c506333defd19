#include "Vantrel/platform/x11/Edid.h"

#include "VantrelCore/displays/DisplayIdentity.h"
#include "tools/desk/EdidBlock.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>
#include <span>

namespace vantrel {
namespace {

using tools::edidBlock;
using tools::EdidPlan;

Edid parsed(const EdidPlan& plan) {
    return EdidBlock::parse(edidBlock(plan)).value_or(Edid{});
}

std::string edidUUIDOf(const EdidPlan& plan) {
    const auto bytes = edidBlock(plan);
    return EdidBlock::edidUUID(bytes, parsed(plan));
}

TEST(EdidBlock, GivesTheMonitorsOwnWordsWithoutWhatCannotBeShown) {
    EXPECT_EQ(parsed({.manufacturer = "DEL",
                      .product = 0xA0B1,
                      .serialNumber = 0x12345678,
                      .name = " A\tB\x07 C  ",
                      .serialText = "CN0123456789A"}),
              (Edid{"DEL", 0xA0B1, 0x12345678, "AB C", "CN0123456789A"}));
}

TEST(EdidBlock, IsNoneWhenDamagedOrCutOff) {
    const auto good = edidBlock({.serialNumber = 5, .name = "Good"});
    ASSERT_TRUE(EdidBlock::parse(good));
    EXPECT_FALSE(EdidBlock::parse({}));
    EXPECT_FALSE(EdidBlock::parse(std::span(good).first(127)));
    for (const std::size_t at : {0U, 7U, 12U, 60U, 127U}) {
        auto damaged = good;
        damaged[at] ^= 0x10;
        EXPECT_FALSE(EdidBlock::parse(damaged)) << at;
    }
}

// Whatever a broken monitor or adapter reports with a good checksum is read without harm.
TEST(EdidBlock, OfAnyContentIsReadWithinItsBounds) {
    std::mt19937 random(20240501);
    const auto header = edidBlock({});
    for (int round = 0; round < 2000; ++round) {
        EdidBytes bytes(128 + 128 * (round % 3U));
        std::ranges::generate(bytes, [&] { return static_cast<std::uint8_t>(random()); });
        std::copy_n(header.begin(), 8, bytes.begin());
        bytes[127] = static_cast<std::uint8_t>(0U - std::accumulate(bytes.begin(), bytes.begin() + 127, 0U));
        const auto edid = EdidBlock::parse(bytes);
        ASSERT_TRUE(edid);
        EXPECT_EQ(edid->manufacturer.size(), 3U);
        EXPECT_FALSE(EdidBlock::displayName(*edid).empty());
        EXPECT_EQ(EdidBlock::edidUUID(bytes, *edid).size(), 36U);
    }
}

TEST(DisplayUUID, IsMadeOfTheWholeBlockAndTheConnector) {
    const auto one = edidBlock({.serialNumber = 1});
    auto extended = one;
    extended.resize(256, 0);
    EXPECT_NE(EdidBlock::displayUUID(one, ""), EdidBlock::displayUUID(extended, ""));
    EXPECT_NE(EdidBlock::displayUUID(one, "DP-1"), EdidBlock::displayUUID(one, "DP-2"));
    // Stored layouts depend on it: it may never change.
    EXPECT_EQ(EdidBlock::displayUUID(edidBlock({}), "DP-1"), "BAE3E99F-0A17-833F-81B4-B9A0BB6632D6");
}

TEST(EdidUUID, CarriesTheSerialNumberInItsSecondAndThirdGroup) {
    EXPECT_EQ(edidUUIDOf({.manufacturer = "DEL", .product = 0xD04A, .serialNumber = 0x11223344}),
              "10AC4AD0-4433-2211-0C22-0104803C2200");
}

TEST(EdidUUID, SaysWhenTheMonitorHasNoSerialNumber) {
    using DisplayIdentity::serialFieldMissing;
    EXPECT_TRUE(serialFieldMissing(edidUUIDOf({})));
    EXPECT_TRUE(serialFieldMissing(edidUUIDOf({.serialNumber = 0x01010101})));
    EXPECT_FALSE(serialFieldMissing(edidUUIDOf({.serialText = "XK77"})));
    EXPECT_NE(edidUUIDOf({.serialText = "XK77"}), edidUUIDOf({.serialText = "XK78"}));
}

} // namespace
} // namespace vantrel
