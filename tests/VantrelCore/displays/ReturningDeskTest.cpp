// Desks that come back: on other connectors, or while nobody could move windows.
#include "VantrelCore/displays/MissedRestore.h"
#include "VantrelCore/displays/SameDesk.h"

#include <gtest/gtest.h>
#include <tuple>

namespace vantrel {
namespace {

using SameDesk::Likeness;

constexpr Rect leftPlace{{0, 0}, {1920, 1080}};
constexpr Rect rightPlace{{1920, 0}, {1920, 1080}};
constexpr const char* withoutSerial = "10ACA0D0-0000-0000-1E1D-0103803C2278";
constexpr const char* withSerial = "10ACA0D0-4C32-3330-1E1D-0103803C2278";

DisplayInfo monitor(const std::string& uuid, const Rect& frame, std::optional<std::string> edidUUID = {}) {
    return {.uuid = uuid,
            .name = "Monitor",
            .frame = frame,
            .isBuiltin = false,
            .edidUUID = std::move(edidUUID),
            .visibleFrame = std::nullopt};
}

Layout layoutOn(const std::string& desk, std::vector<DisplayInfo> displays, int savedAt) {
    return {.configID = desk,
            .name = "Name of " + desk,
            .layoutName = Layout::defaultName,
            .displays = std::move(displays),
            .windows = {},
            .savedAt = Date{} + std::chrono::seconds{savedAt},
            .pinned = std::nullopt};
}

TEST(SameDesk, OnlyDisplaysWithoutAnIdentityOfTheirOwnAreCertainlyTheSame) {
    const std::tuple<const char*, SameDesk::Displays, SameDesk::Displays, Likeness> cases[] = {
        {"twins without serial numbers",
         {monitor("A", leftPlace, withoutSerial), monitor("B", rightPlace, withoutSerial)},
         {monitor("D", rightPlace, withoutSerial), monitor("C", leftPlace, withoutSerial)},
         Likeness::certain},
        {"twins with one serial number",
         {monitor("A", leftPlace, withSerial), monitor("B", rightPlace, withSerial)},
         {monitor("C", leftPlace, withSerial), monitor("D", rightPlace, withSerial)},
         Likeness::certain},
        {"no identity data",
         {monitor("display-1", leftPlace)},
         {monitor("display-2", leftPlace)},
         Likeness::certain},
        {"a monitor with a serial number on another kind of port",
         {monitor("A", leftPlace, withSerial)},
         {monitor("B", leftPlace, withSerial)},
         Likeness::possible},
        {"no identity data any more",
         {monitor("A", leftPlace, withoutSerial)},
         {monitor("display-1", leftPlace)},
         Likeness::possible},
        {"an uuid of the platform alone",
         {monitor("A", leftPlace)},
         {monitor("B", leftPlace)},
         Likeness::possible},
        {"another place",
         {monitor("display-1", leftPlace)},
         {monitor("display-2", rightPlace)},
         Likeness::different},
        {"one more",
         {monitor("display-1", leftPlace)},
         {monitor("display-1", leftPlace), monitor("display-2", rightPlace)},
         Likeness::different},
        {"none", {}, {}, Likeness::different},
    };
    for (const auto& [what, a, b, expected] : cases) {
        EXPECT_EQ(SameDesk::likeness(a, b), expected) << what;
        EXPECT_EQ(SameDesk::likeness(b, a), expected) << what;
    }
    auto renamedModel = monitor("display-2", leftPlace);
    renamedModel.name = "Television";
    EXPECT_EQ(SameDesk::likeness({monitor("display-1", leftPlace)}, {renamedModel}), Likeness::different);
}

TEST(SameDesk, FindsOneCertainDeskAndOfSeveralOffersTheLatest) {
    const SameDesk::Displays present{monitor("display-3", leftPlace)};
    const Layout first = layoutOn("first", {monitor("display-1", leftPlace)}, 2);
    const Layout second = layoutOn("second", {monitor("display-2", leftPlace)}, 1);
    const Layout possible = layoutOn("possible", {monitor("A", leftPlace, withSerial)}, 9);
    const Layout own = layoutOn("present", present, 10);
    using Found = std::optional<SameDesk::Remembered>;
    EXPECT_EQ(SameDesk::find({possible, first, own}, "present", present),
              Found({"first", "Name of first", true}));
    EXPECT_EQ(SameDesk::find({first, second}, "present", present), Found({"first", "Name of first", false}));
    EXPECT_EQ(SameDesk::find({possible, own}, "present", present),
              Found({"possible", "Name of possible", false}));
    EXPECT_EQ(SameDesk::find({own}, "present", present), Found());
}

TEST(MissedRestore, OnlyAWindowThatLeftItsPlaceHasMoved) {
    const Rect here{{0, 0}, {400, 300}};
    const Rect there{{900, 0}, {400, 300}};
    using Windows = std::vector<WindowOutline>;
    const std::tuple<Windows, Windows, bool> cases[] = {
        {{{1, here}, {1, there}}, {{1, there}, {1, here}}, false},
        {{{1, here}}, {{1, there}}, true},
        {{{1, here}}, {{1, there}, {1, here}}, false},
        {{{1, here}, {1, there}}, {{1, there}}, false},
        {{{1, here}, {1, here}}, {{1, here}, {1, there}}, true},
        {{{1, here}}, {{2, there}}, false},
    };
    for (const auto& [before, now, hasMoved] : cases) {
        EXPECT_EQ(MissedRestore::hasAnyMoved(before, now), hasMoved) << (&before - &std::get<0>(cases[0]));
    }
}

} // namespace
} // namespace vantrel
