#include "Vantrel/platform/macos/MacWorkspace.h"
#include "Vantrel/platform/macos/RunningApplications.h"
#include "Vantrel/platform/macos/Screens.h"
#include "tests/macos/CocoaTest.h"

#include <gmock/gmock.h>
#include <thread>
#include <unistd.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;

std::shared_ptr<cocoa::Application> application(int pid, const std::string& bundleID) {
    return std::make_shared<cocoa::Application>(
        cocoa::Application{.pid = pid, .bundleID = bundleID, .name = "Name of " + bundleID});
}

using ScreensOfTheMac = CocoaTest;

TEST_F(ScreensOfTheMac, KeepTheirOwnCoordinatesAndNames) {
    mac().screens = {
        {.number = 69, .name = "Écran", .frame = {0, 0, 1440, 900}, .visibleFrame = {0, 25, 1440, 850}},
        {.number = 2,
         .name = "HDMI",
         .frame = {1440, -180, 1920, 1080},
         .visibleFrame = {1440, -180, 1920, 1055}}};
    EXPECT_THAT(Screens::read(),
                ElementsAre(Screen{69, "Écran", {{0, 0}, {1440, 900}}, {{0, 25}, {1440, 850}}},
                            Screen{2, "HDMI", {{1440, -180}, {1920, 1080}}, {{1440, -180}, {1920, 1055}}}));
    mac().screens = {{.number = {}, .name = "none"}, {.number = 7, .name = "text", .isNumberText = true}};
    EXPECT_THAT(Screens::read(), ElementsAre(Screen{{}, "none", {}, {}}, Screen{{}, "text", {}, {}}));
}

using RunningApplicationsOfTheMac = CocoaTest;

TEST_F(RunningApplicationsOfTheMac, AreReadWithWhatTheyLackOnAnyThread) {
    mac().applications = {application(5, "a"),
                          std::make_shared<cocoa::Application>(cocoa::Application{.pid = 6}),
                          application(7, "c")};
    mac().applications[1]->policy = 2;
    mac().applications[2]->policy = 1;
    std::vector<RunningApp> read;
    std::thread([&] { read = RunningApplications::read(); }).join();
    EXPECT_THAT(read, ElementsAre(RunningApp{5, ActivationPolicy::regular, "a", "Name of a"},
                                  RunningApp{6, ActivationPolicy::prohibited, std::nullopt, std::nullopt},
                                  RunningApp{7, ActivationPolicy::accessory, "c", "Name of c"}));
    mac().applications[0]->policy = 99;
    EXPECT_EQ(RunningApplications::read()[0].policy, ActivationPolicy::prohibited);
}

class WorkspaceOfTheMac : public CocoaTest {
protected:
    std::vector<std::string> m_log;
    MacWorkspace m_workspace{[this](const std::string& message) { m_log.push_back(message); }};
};

TEST_F(WorkspaceOfTheMac, NamesApplicationsAsTheFinderDoes) {
    mac().installed = {{"a", {.path = "/Applications/A b.app", .name = "A b.app"}},
                       {"c", {.path = "/Applications/c.app", .name = "Übersicht 2.1"}}};
    EXPECT_EQ(m_workspace.applicationName("a"), "A b");
    EXPECT_EQ(m_workspace.applicationName("c"), "Übersicht 2.1");
    EXPECT_EQ(m_workspace.applicationName("absent"), std::nullopt);
    EXPECT_EQ(m_workspace.applicationName("\xff"), std::nullopt);
}

TEST_F(WorkspaceOfTheMac, StartsApplicationsInTheBackgroundAndTellsWhatDidNotStart) {
    mac().installed = {{"a", {.path = "/Applications/A b.app", .name = "A b"}},
                       {"broken", {.path = "/Applications/B.app", .name = "B", .starts = false}}};
    EXPECT_TRUE(m_workspace.launch("a"));
    EXPECT_TRUE(m_workspace.launch("broken"));
    EXPECT_FALSE(m_workspace.launch("absent"));
    cocoa::runMainQueue();
    EXPECT_THAT(mac().calls, ElementsAre("launch /Applications/A b.app activates=0",
                                         "launch /Applications/B.app activates=0"));
    EXPECT_THAT(m_log, ElementsAre("launch: broken did not start: The application can’t be opened."));
}

TEST_F(WorkspaceOfTheMac, ShowsAgainWhatItHidAndNothingElse) {
    mac().applications = {application(1, "a"), application(2, "a"), application(3, "a"), application(4, "b"),
                          application(5, "a")};
    mac().applications[1]->isHidden = true;
    mac().applications[2]->obeys = false;
    EXPECT_TRUE(m_workspace.hide("a"));
    // What is hidden stays so, and is not forgotten.
    EXPECT_FALSE(m_workspace.hide("a"));
    EXPECT_FALSE(m_workspace.hide("absent"));
    mac().applications[4]->isTerminated = true;
    mac().calls.clear();
    EXPECT_TRUE(m_workspace.unhide("a"));
    EXPECT_THAT(mac().calls, ElementsAre("unhide 1"));
    EXPECT_FALSE(m_workspace.unhide("a"));

    mac().applications = {application(1, "a")};
    EXPECT_TRUE(m_workspace.hide("a"));
    mac().applications[0]->isHidden = false;
    EXPECT_FALSE(m_workspace.unhide("a")) << "the user has shown it";
    EXPECT_FALSE(m_workspace.hide("\xff"));
}

constexpr const char* didLaunch = "NSWorkspaceDidLaunchApplicationNotification";

TEST_F(WorkspaceOfTheMac, TellsOfApplicationsThatStartButNotOfItself) {
    std::vector<RunningApp> started;
    m_workspace.setLaunchHandler([&](const RunningApp& app) { started.push_back(app); });
    cocoa::post(cocoa::Center::workspace, didLaunch, application(9, "a"));
    cocoa::post(cocoa::Center::workspace, didLaunch, application(getpid(), "self"));
    // Without the entry that says which.
    cocoa::post(cocoa::Center::workspace, didLaunch);
    cocoa::post(cocoa::Center::program, didLaunch, application(10, "elsewhere"));
    cocoa::runMainQueue();
    EXPECT_THAT(started, ElementsAre(RunningApp{9, ActivationPolicy::regular, "a", "Name of a"}));
}

TEST_F(WorkspaceOfTheMac, TellsNothingOnceNobodyListens) {
    int first = 0;
    int second = 0;
    m_workspace.setLaunchHandler([&](const RunningApp& /*app*/) { ++first; });
    // Under way while the handler is replaced.
    cocoa::post(cocoa::Center::workspace, didLaunch, application(9, "a"));
    m_workspace.setLaunchHandler([&](const RunningApp& /*app*/) { ++second; });
    cocoa::post(cocoa::Center::workspace, didLaunch, application(10, "b"));
    cocoa::runMainQueue();
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
    cocoa::post(cocoa::Center::workspace, didLaunch, application(11, "c"));
    m_workspace.setLaunchHandler({});
    cocoa::runMainQueue();
    EXPECT_EQ(second, 1);

    auto workspace = std::make_unique<MacWorkspace>([](const std::string& /*message*/) {});
    workspace->setLaunchHandler([&](const RunningApp& /*app*/) { workspace.reset(); });
    cocoa::post(cocoa::Center::workspace, didLaunch, application(9, "a"));
    cocoa::runMainQueue();
    EXPECT_EQ(workspace, nullptr);
    EXPECT_EQ(cocoa::observers(), 0U);
}

} // namespace
} // namespace vantrel::fake
