// A monitor that is unplugged and plugged back again and again, at any moment, with real programs on it.
#include "tests/live/WindowManagers.h"
#include "tests/live/demo/DemoTable.h"
#include "tests/live/demo/DemoWindows.h"
#include "tests/live/demo/RunningVantrel.h"
#include "tests/live/desk/EdidBlock.h"

#include <algorithm>
#include <fmt/format.h>
#include <fstream>
#include <nlohmann/json.hpp>
#include <random>
#include <thread>

namespace vantrel::live {
namespace {

constexpr MonitorPlace leftMonitor{0, 0, 1280, 1024};
constexpr MonitorPlace rightMonitor{1280, 0, 1600, 900};

class ManyRounds : public testing::TestWithParam<const char*> {
protected:
    ManyRounds() : desk({leftMonitor, rightMonitor}, GetParam()) {
        desk.monitors().setEdid(0, edidBlock({.product = 24, .serialNumber = 1001, .name = "Desk 24"}));
        desk.monitors().setEdid(1, edidBlock({.product = 27, .serialNumber = 1002, .name = "Side 27"}));
        for (const DemoWindow& planned : demoWindows(desk)) {
            const SeenWindow opened = desk.open(planned.command);
            desk.place(opened.client, planned.place);
            stories.push_back({.name = planned.name,
                               .program = planned.program,
                               .before = {},
                               .unplugged = std::nullopt,
                               .after = std::nullopt,
                               .increment = sizeIncrement(desk.connection(), opened.client)});
            clients.push_back(opened.client);
        }
    }

    // The windows that vantrel has stored for the desk of that name.
    [[nodiscard]] nlohmann::json storedWindows(const std::string& deskName) const {
        std::ifstream file(desk.home().dataFolder() / "Vantrel" / "layouts.json");
        const auto stored = nlohmann::json::parse(file);
        for (const auto& layout : stored.at("layouts")) {
            if (layout.at("name") == deskName) {
                return layout.at("windows");
            }
        }
        return {};
    }

    void sleepUpTo(double seconds) {
        const double length = std::uniform_real_distribution<>(0, seconds)(random);
        std::this_thread::sleep_for(std::chrono::duration<double>(length));
    }

    bool everyWindowIsBack() {
        for (std::size_t i = 0; i < stories.size(); ++i) {
            const auto seen = seenWindow(desk.connection(), clients[i]);
            stories[i].after = seen ? std::optional(seen->frame) : std::nullopt;
        }
        return std::ranges::all_of(stories, DemoTable::isBack);
    }

    PrivateDesk desk;
    std::vector<xcb_window_t> clients;
    std::vector<WindowStory> stories;
    unsigned seed = std::random_device()();
    std::mt19937 random{seed};
};

TEST_P(ManyRounds, EndWithEveryWindowBackAndNothingLearnedOnTheWay) {
    SCOPED_TRACE(fmt::format("seed {}", seed));
    RunningVantrel vantrel(desk, {VANTREL_PROGRAM, VANTRELCTL_PROGRAM});
    vantrel.save();
    const auto learned = storedWindows("Desk 24 + Side 27");
    ASSERT_EQ(learned.size(), stories.size());
    for (std::size_t i = 0; i < stories.size(); ++i) {
        stories[i].before = seenWindow(desk.connection(), clients[i])->frame;
    }

    // Around the 0.5 seconds for which displays must be quiet: some changes settle, others run into the next.
    for (int round = 0; round < 30; ++round) {
        desk.monitors().unplug(1);
        sleepUpTo(1.0);
        desk.monitors().plug(1, rightMonitor);
        sleepUpTo(1.0);
    }

    // Until vantrel has looked again after the last restore.
    EXPECT_TRUE(waitUntil([&] {
        const std::string log = vantrel.log();
        const auto settled = log.rfind("display settled:");
        return settled != std::string::npos && log.find("restore report:", settled) != std::string::npos &&
               everyWindowIsBack();
    })) << DemoTable::text(stories)
        << vantrel.log();
    const std::string log = vantrel.log();
    // One restore for each settled change, given up where the next change came first or in its middle. A
    // monitor that is gone again when the desk is named has no name any more.
    EXPECT_EQ(vantrel.linesLogged("restore report:") + vantrel.linesLogged("restore abandoned:") +
                  vantrel.linesLogged("restore dropped: the displays have changed"),
              vantrel.linesLogged("(2 displays)"))
        << log;
    // The order of the stack is the window manager's affair while monitors come and go.
    const auto frames = [](const nlohmann::json& windows) {
        std::vector<std::string> result;
        for (const auto& window : windows) {
            result.push_back(window.at("bundleID").dump() + window.at("frame").dump());
        }
        std::ranges::sort(result);
        return result;
    };
    EXPECT_EQ(frames(storedWindows("Desk 24 + Side 27")), frames(learned)) << log;
    EXPECT_EQ(storedWindows("Desk 24"), nlohmann::json()) << log;
}

INSTANTIATE_TEST_SUITE_P(Live, ManyRounds, testedWindowManagers(), windowManagerName);

} // namespace
} // namespace vantrel::live
