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

} // namespace
} // namespace vantrel::live
