// What makes a window itself: titles, stacking order and neighbours change, windows close and open, and
// vantrel itself is killed and started again.
#include "tests/live/VantrelDesk.h"

#include <csignal>
#include <fmt/format.h>
#include <fstream>
#include <tuple>

namespace vantrel::live {
namespace {

class EveryWindowUnder : public UnderWindowManager {
protected:
    void xdotool(const std::string& arguments) {
        const auto ended = desk.run({"sh", "-c", "xdotool " + arguments});
        EXPECT_EQ(ended.code, 0) << ended.output;
    }

    xcb_window_t openTerminal() { return desk.open({"xterm", "-T", "shell", "-geometry", "40x10"}).client; }

    [[nodiscard]] bool areHome(const std::vector<xcb_window_t>& clients, const std::vector<Rect>& home) {
        return eventually([&] { return desk.frames(clients) == home; });
    }

    // Returns when vantrel has put the desk in order.
    void undockAndDock(const std::function<void()>& between = [] {}) {
        const auto settled = desk.logged("display settled: ");
        const auto reports = desk.logged("restore report: ");
        desk.monitors().unplug(1);
        ASSERT_TRUE(desk.awaitLogged("display settled: ", settled + 1));
        between();
        desk.monitors().plug(1, right);
        ASSERT_TRUE(desk.awaitLogged("restore report: ", reports + 1));
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, EveryWindowUnder, fourWindowManagers(), windowManagerName);

TEST_P(EveryWindowUnder, StaysItselfWhateverItIsCalledAndWhoeverRestarts) {
    std::vector<xcb_window_t> clients{openTerminal(), openTerminal(), openTerminal()};
    desk.drag(clients[0], {1500, 200});
    desk.drag(clients[1], {100, 500});
    desk.drag(clients[2], {1900, 500});
    const auto home = desk.frames(clients);
    {
        auto run = desk.startVantrel();
        desk.done({"save"});
        ASSERT_TRUE(waitUntil([&] {
            std::ifstream file(desk.vantrelFolder() / "session.json");
            const std::string text(std::istreambuf_iterator<char>(file), {});
            return text.find("zOrder\": 2") != std::string::npos;
        }));
        std::ignore = run.endedBy(SIGKILL);
    }
    // Twins are told apart by their order otherwise, and the wrong one comes first now.
    for (const auto client : clients) {
        xdotool(fmt::format("windowactivate {}", client));
    }
    const auto run = desk.startVantrel();
    EXPECT_EQ(desk.logged("session notes: taken over from the last run"), 1U);
    undockAndDock();
    EXPECT_TRUE(areHome(clients, home)) << "after a restart, in another order";

    xcb_window_t newcomer = XCB_WINDOW_NONE;
    undockAndDock([&] {
        xdotool(fmt::format("set_window --name 'long job' {}", clients[0]));
        xdotool(fmt::format("windowactivate {}", clients[1]));
        xdotool(fmt::format("windowclose {}", clients[2]));
        newcomer = openTerminal();
    });
    EXPECT_TRUE(areHome({clients[0], clients[1], newcomer}, home))
        << "the retitled one keeps its place, and the new one takes that of the closed one";
}

} // namespace
} // namespace vantrel::live
