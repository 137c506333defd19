// The workbench by real keys and clicks, on two window managers.
#include "tests/live/UserAtDesk.h"
#include "tools/desk/Picture.h"

#include <filesystem>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

using testing::HasSubstr;
using testing::Not;

class WorkbenchStories : public testing::TestWithParam<const char*> {
protected:
    // Asks for the window at this tab, also to bring it to the front, and waits for the control.
    void open(const char* tab, const std::string& control) {
        desk.done({"workbench", tab});
        user.await(control);
    }

    void keepPicture(const std::string& name) {
        Picture::take(desk.connection())
            .save(std::filesystem::path(PICTURES_FOLDER) /
                  fmt::format("workbench-{}-{}.png", name, GetParam()));
    }

    VantrelDesk desk{GetParam(), {{0, 0, 1280, 900}, {1280, 0, 1024, 768}}};
    UserAtDesk user{desk};
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, WorkbenchStories, windowManagers(), windowManagerName);

TEST_P(WorkbenchStories, ASceneIsMadeGivenATimeAppliedDeletedAndBroughtBackByKeyboardAlone) {
    const auto window = desk.open({"galculator"}).client;
    desk.drag(window, {1500, 200});
    const Rect home = desk.frame(window);
    const auto vantrel = user.startVantrel();
    desk.done({"save"});
    open("scenes", "Search scenes");
    user.press({"ctrl+f"});
    user.tabTo("Save this desk as a scene");
    user.type("Work");
    user.press({"Return"});
    user.tabTo("Add a time");
    user.press({"space"});
    user.type("9:30");
    user.press({"Return"});
    user.await("Every day at 9:30 AM");
    EXPECT_THAT(desk.done({"triggers"}), HasSubstr("Work"));

    desk.drag(window, {1400, 300});
    open("scenes", "1 window has moved");
    keepPicture("scene");
    user.tabTo("Apply");
    user.press({"space"});
    EXPECT_TRUE(desk.connection().waitUntil([&] { return desk.frame(window) == home; }));
    user.await("Every window is in its place");

    open("history", "Scene “Work”");
    user.press({"ctrl+1"});
    user.await("Search scenes");
    user.press({"ctrl+f", "Down", "Delete"});
    user.await("The scene \"Work\" was deleted.");
    EXPECT_THAT(desk.done({"scenes"}), Not(HasSubstr("Work")));
    keepPicture("deleted");
    user.press({"ctrl+z"});
    EXPECT_TRUE(user.awaitNone("The scene \"Work\" was deleted."));
    EXPECT_THAT(desk.done({"scenes"}), HasSubstr("Work"));
    user.press({"ctrl+w"});
    EXPECT_TRUE(user.awaitNone("Search scenes"));
    EXPECT_THAT(desk.done({"desks"}), Not(HasSubstr("vantrel"))) << "our own window is never learned";
}

TEST_P(WorkbenchStories, AnAbsentDeskIsForgottenAndBroughtBackAndThenRestoredAsBefore) {
    const auto window = desk.open({"galculator"}).client;
    desk.drag(window, {1500, 200});
    const Rect home = desk.frame(window);
    const auto vantrel = user.startVantrel();
    desk.done({"save"});
    desk.done({"desks", "rename", "Office"});
    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.awaitLogged("display settled", 1));
    desk.done({"save"});
    open("desks", "If it were restored now");
    user.clickOn("Office");
    user.await("If it were applied here now");
    keepPicture("desks");
    user.press({"Delete"});
    user.await("The desk \"Office\" was deleted.");
    EXPECT_THAT(desk.done({"desks"}), Not(HasSubstr("Office")));
    user.clickOn("Undo the deletion");
    user.await("Office");
    user.press({"ctrl+w"});
    EXPECT_TRUE(user.awaitNone("Search desks"));
    desk.monitors().plug(1, {1280, 0, 1024, 768});
    EXPECT_TRUE(desk.connection().waitUntil([&] { return desk.frame(window) == home; }));
}

TEST_P(WorkbenchStories, TheWindowTheFileAndTheCommandLineChangeTheSameThingsAndEachFollows) {
    desk.open({"galculator"});
    const auto vantrel = user.startVantrel();
    desk.done({"save"});
    const std::string monitor = desk.asked({"displays"}).at("displays").at(1).at("label");
    open("rules", "Search apps");
    user.clickOn("Keep Galculator on " + monitor);
    EXPECT_TRUE(waitUntil([&] { return desk.done({"rules"}).contains(monitor); })) << desk.done({"rules"});
    desk.done({"rules", "remove", "Galculator"});
    EXPECT_TRUE(waitUntil([&] { return !user.await("Keep Galculator on " + monitor).is("checked"); }));

    open("settings", "Sections of the settings");
    user.clickOn("Restoring");
    constexpr const char* sizes = "Put sizes back too";
    const auto isOn = [&](bool expected) {
        return waitUntil([&] { return user.await(sizes).is("checked") == expected; });
    };
    EXPECT_TRUE(isOn(true));
    user.clickOn(sizes);
    EXPECT_TRUE(waitUntil(
        [&] { return desk.done({"settings", "get", "restoreSizes"}).starts_with("restoreSizes = false"); }));
    desk.home().writeSettings("restoreSizes = true\n");
    EXPECT_TRUE(isOn(true));
    desk.done({"settings", "set", "restoreSizes", "false"});
    EXPECT_TRUE(isOn(false));

    open("scenes", "Search scenes");
    desk.done({"save-scene", "Work"});
    user.clickOn("Work");
    desk.done({"scenes", "rename", "Work", "Writing"});
    user.await("Writing");
    EXPECT_TRUE(user.awaitNone("Work"));
    user.press({"Delete"});
    EXPECT_TRUE(waitUntil([&] { return !desk.done({"scenes"}).contains("Writing"); }));
    EXPECT_THAT(desk.refused({"scenes", "pin", "Writing"}), HasSubstr("There are no scenes"));
    desk.done({"undelete"});
    user.await("Writing");
    EXPECT_TRUE(user.awaitNone("Undo the deletion"));
}

} // namespace
} // namespace vantrel::live
