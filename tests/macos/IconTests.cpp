#include "Vantrel/platform/macos/ApplicationPictures.h"
#include "Vantrel/platform/macos/MacSystemSymbols.h"
#include "tests/macos/CocoaTest.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Icons : CocoaTest {};

TEST_F(Icons, OfApplicationsComeFromTheWorkspace) {
    mac().installed = {
        {"org.example.Mail", {.path = "/Applications/Mail.app", .name = "Mail"}},
        {"org.example.Broken", {.path = "/Applications/Broken.app", .name = "", .hasIcon = false}}};
    EXPECT_THAT(ApplicationPictures::read("org.example.Mail"),
                ElementsAre("\x89PNG Mail 32x32", "\x89PNG Mail 128x128"));
    for (const char* const other : {"org.example.Broken", "org.example.Removed", "\xff"}) {
        EXPECT_THAT(ApplicationPictures::read(other), IsEmpty()) << other;
    }
}

TEST_F(Icons, OfTheSystemHaveTheirSizeInUnitsOfTheFont) {
    mac().symbols = {{"paintbrush", {.width = 1.25, .height = 1}}};
    MacSystemSymbols symbols;
    const auto found = symbols.picture("paintbrush");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->png, "\x89PNG paintbrush 80x64");
    EXPECT_EQ(found->size, (Size{1.25, 1}));
    EXPECT_FALSE(symbols.picture("brush.of.a.newer.system"));
}

} // namespace
} // namespace vantrel::fake
