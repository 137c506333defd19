// A monitor with real programs on it is unplugged and plugged back again and again, at random moments.
#include "tests/live/VantrelDesk.h"
#include "tools/demo/DemoWindows.h"

#include <algorithm>
#include <csignal>
#include <fstream>
#include <random>
#include <thread>

namespace vantrel::live {
namespace {

class DemoOnADesk : public UnderWindowManager {
protected:
    // Application and frame of every window stored for the desk, sorted: the window manager may change the
    // stacking order while monitors come and go.
    [[nodiscard]] std::vector<std::string> stored(const std::string& deskName) const {
        std::ifstream file(desk.vantrelFolder() / "layouts.json");
        const auto layouts = nlohmann::json::parse(file).at("layouts");
        std::vector<std::string> result;
        for (const auto& layout : layouts) {
            for (const char* const list : {"windows", "otherWindows"}) {
                for (const auto& window : layout.value(list, nlohmann::json::array())) {
                    if (layout.at("name") == deskName) {
                        result.push_back(window.at("bundleID").dump() + window.at("frame").dump() +
                                         window.value("states", nlohmann::json()).dump());
                    }
                }
            }
        }
        std::ranges::sort(result);
        return result;
    }

    void sleepUpTo(double seconds) {
        const double length = std::uniform_real_distribution<>(0, seconds)(random);
        std::this_thread::sleep_for(std::chrono::duration<double>(length));
    }

    void takeFrames() {
        for (DemoActor& actor : actors) {
            const auto seen = seenWindow(desk.connection(), actor.client);
            actor.story.after = seen ? std::optional(seen->frame) : std::nullopt;
            actor.story.stateAfter = stateOf(desk.connection(), actor.client);
        }
    }

    [[nodiscard]] std::string table() const {
        std::vector<WindowStory> stories;
        std::ranges::transform(actors, std::back_inserter(stories), &DemoActor::story);
        return DemoTable::text(stories);
    }

    void saveHome() {
        desk.done({"save"});
        for (DemoActor& actor : actors) {
            actor.story.before = desk.frame(actor.client);
            actor.story.stateBefore = stateOf(desk.connection(), actor.client);
        }
    }

    [[nodiscard]] bool areBack() {
        takeFrames();
        return std::ranges::all_of(actors, DemoTable::isBack, &DemoActor::story);
    }

    std::vector<DemoActor> actors = openDemo(desk);
    unsigned seed = std::random_device()();
    std::mt19937 random{seed};
};

using ManyRounds = DemoOnADesk;

TEST_P(ManyRounds, BringEveryWindowBackAndLearnNothing) {
    SCOPED_TRACE(seed);
    const auto vantrel = desk.startVantrel();
    saveHome();
    const auto learned = stored("Desk 24 + Side 27");
    ASSERT_EQ(learned.size(), actors.size());

    // Displays settle after 0.5 quiet seconds: every other round ends earlier, the rest may settle.
    for (int round = 0; round < 30; ++round) {
        desk.monitors().unplug(1);
        sleepUpTo(round % 2 == 0 ? 0.3 : 1.2);
        desk.monitors().plug(1, rightMonitor);
        sleepUpTo(1.0);
    }

    // Each settled change starts one restore, which the next change may overtake. A monitor that is gone
    // again before its desk is named has no name.
    EXPECT_TRUE(waitUntil([&] {
        const bool areHome = areBack();
        const std::string log = desk.log();
        const auto settled = log.rfind("display settled:");
        return settled != std::string::npos && log.find("restore report:", settled) != std::string::npos &&
               desk.logged("restore report:") + desk.logged("restore abandoned:") +
                       desk.logged("restore dropped: the displays have changed") ==
                   desk.logged("(2 displays)") &&
               areHome;
    })) << table();
    EXPECT_EQ(stored("Desk 24 + Side 27"), learned);
    EXPECT_TRUE(stored("Desk 24").empty());
}

INSTANTIATE_TEST_SUITE_P(Live, ManyRounds, windowManagers(), windowManagerName);

using LateWindowManager = DemoOnADesk;

// jwm moves windows 1.4 seconds after a display change.
TEST_P(LateWindowManager, LosesNoWindowAndNoState) {
    const auto vantrel = desk.startVantrel();
    saveHome();
    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.awaitLogged("display settled: "));
    const pid_t manager = desk.windowManagerPid();
    kill(manager, SIGSTOP);
    desk.monitors().plug(1, rightMonitor);
    ASSERT_TRUE(desk.awaitLogged("display settled: ", 2));
    std::this_thread::sleep_for(std::chrono::milliseconds(900));
    kill(manager, SIGCONT);
    EXPECT_TRUE(waitUntil([&] { return areBack(); })) << table();
    desk.awaitStill();
    EXPECT_TRUE(areBack()) << table();
}

INSTANTIATE_TEST_SUITE_P(Live, LateWindowManager, fourWindowManagers(), windowManagerName);

} // namespace
} // namespace vantrel::live
