// The settings file as people edit it while vantrel runs, and what vantrel keeps out of it.
#include "tests/live/VantrelDesk.h"

#include <fstream>
#include <gmock/gmock.h>
#include <iterator>

namespace vantrel::live {
namespace {

using testing::HasSubstr, testing::Not;

constexpr const char* file = "config/vantrel/settings.conf";

TEST(SettingsFile, IsSearchedForMistakesAndRidOfNotes) {
    VantrelDesk desk("openbox");
    desk.home().write(file, "# mine\nsetleDelay = 2\nhasOnboarded = true\n");
    const auto run = desk.startVantrel();
    const std::string mistake =
        "Line 2 of settings.conf: There is no setting \"setleDelay\". Did you mean \"settleDelay\"?";
    EXPECT_THAT(desk.done({"status"}), HasSubstr("! " + mistake));
    EXPECT_THAT(desk.done({"settings"}), HasSubstr("! " + mistake));
    EXPECT_THAT(desk.refused({"settings", "set", "setleDelay", "2"}),
                HasSubstr("There is no setting \"setleDelay\". Did you mean \"settleDelay\"?"));
    EXPECT_EQ(desk.logged(mistake), 1U);

    EXPECT_THAT(desk.done({"settings", "get", "hasOnboarded"}), HasSubstr("hasOnboarded = true"));
    std::ifstream text(desk.home().configFolder() / "vantrel" / "settings.conf");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(text), {}), "# mine\nsetleDelay = 2\n");

    desk.home().write(file, "settleDelay = 2\n");
    EXPECT_TRUE(desk.connection().waitUntil(
        [&] { return desk.done({"settings", "get", "settleDelay"}).starts_with("settleDelay = 2"); }));
    EXPECT_THAT(desk.done({"status"}), Not(HasSubstr("! Line")));
}

TEST(Undelete, PutsBackWhatWasDeletedLast) {
    VantrelDesk desk("openbox");
    desk.open({"mousepad", "--disable-server"});
    const auto run = desk.startVantrel();
    desk.done({"save-scene", "Work"});
    desk.done({"triggers", "add", "schedule", "9:30", "Work"});
    const auto before = desk.asked({"scenes"});
    EXPECT_THAT(desk.done({"scenes", "delete", "work"}), HasSubstr("To put it back: vantrelctl undelete"));
    EXPECT_EQ(desk.done({"undelete"}), "Put back the scene \"Work\".\n");
    EXPECT_EQ(desk.asked({"scenes"}), before);
    EXPECT_THAT(desk.done({"triggers"}), HasSubstr("\"Work\""));
    EXPECT_THAT(desk.refused({"undelete"}), HasSubstr("Nothing was deleted since Vantrel started"));
}

} // namespace
} // namespace vantrel::live
