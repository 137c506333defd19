// What makes a window itself: titles, stacking order and neighbours change, windows close and open, and
// vantrel itself is killed and started again.
#include "tests/live/VantrelDesk.h"
#include "tools/desk/ProbeClient.h"

#include <csignal>
#include <fmt/format.h>
#include <fstream>
#include <map>
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
            std::ifstream file(desk.stateFolder() / "session.json");
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

// The areas that a top-level window has had since this object was made.
class AreaRecorder {
public:
    AreaRecorder(const VantrelDesk& desk, xcb_window_t client) : m_connection(desk.display()) {
        m_window = client;
        for (xcb_window_t parent = client; parent != m_connection.root();) {
            m_window = parent;
            const Reply<xcb_query_tree_reply_t> tree{xcb_query_tree_reply(
                m_connection.xcb(), xcb_query_tree(m_connection.xcb(), m_window), nullptr)};
            parent = tree ? tree->parent : m_connection.root();
        }
        const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection.xcb(), m_window, XCB_CW_EVENT_MASK, &events);
        m_connection.finish();
    }

    [[nodiscard]] std::vector<Rect> areas() {
        m_connection.finish();
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.xcb())}) {
            const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(*event);
            if ((event->response_type & 0x7f) != XCB_CONFIGURE_NOTIFY || change.event != m_window) {
                continue;
            }
            const Rect area{{static_cast<double>(change.x), static_cast<double>(change.y)},
                            {static_cast<double>(change.width), static_cast<double>(change.height)}};
            if (m_areas.empty() || m_areas.back() != area) {
                m_areas.push_back(area);
            }
        }
        return m_areas;
    }

private:
    DeskConnection m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    std::vector<Rect> m_areas;
};

TEST_P(EveryWindowUnder, MovesFewTimesWhileMaximizedAndKeepsItsOrdinaryPlace) {
    const xcb_window_t client = desk.open({"mousepad", "--disable-server"}).client;
    desk.drag(client, {1500, 200});
    desk.connection().tellWindowManager(client, "_NET_WM_STATE",
                                        {1, desk.connection().atom("_NET_WM_STATE_MAXIMIZED_HORZ"),
                                         desk.connection().atom("_NET_WM_STATE_MAXIMIZED_VERT"), 2});
    desk.awaitStill();
    const auto home = desk.frames({client});
    const auto run = desk.startVantrel();
    desk.done({"save"});
    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.awaitLogged("display settled: "));
    AreaRecorder recorder(desk, client);
    desk.monitors().plug(1, right);
    ASSERT_TRUE(desk.awaitLogged("restore report: "));
    desk.awaitStill();
    // Its ordinary place, and the last one; kwin moves it itself first, fluxbox shows each direction.
    const std::string windowManager = GetParam();
    const std::size_t most = windowManager == "fluxbox" ? 5 : windowManager == "kwin" ? 4 : 2;
    EXPECT_LE(recorder.areas().size(), most) << ::testing::PrintToString(recorder.areas());
    EXPECT_EQ(desk.frames({client}), home);
}

// What is learned in a minute on another virtual desktop, after a restore that failed for one window.
TEST(EveryWindow, KeepsItsPlaceWhileTheUserWorksOnAnotherDesktop) {
    // It insists on the smallest size that a window states.
    VantrelDesk desk("openbox");
    ProbeClient probe(desk.display());
    const auto frames = [&](const std::vector<xcb_window_t>& clients) { return desk.frames(clients); };
    const xcb_window_t notes = desk.open({"mousepad", "--disable-server"}).client;
    const xcb_window_t calculator = desk.open({"galculator"}).client;
    const xcb_window_t stubborn = probe.show({.title = "stubborn"});
    desk.drag(notes, {1500, 200});
    desk.drag(calculator, {100, 500});
    desk.drag(stubborn, {1900, 400});
    const auto home = frames({notes, stubborn});
    const auto run = desk.startVantrel();
    desk.done({"save"});

    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.awaitLogged("display settled: "));
    std::vector<std::uint32_t> hints(18, 0);
    hints[0] = 1U << 4U; // The smallest size: 800 x 700.
    hints[5] = 800;
    hints[6] = 700;
    probe.setValues(stubborn, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", hints);
    desk.place(stubborn, {{60, 60}, {850, 750}});
    desk.monitors().plug(1, right);
    ASSERT_TRUE(desk.awaitLogged("restore report: "));
    EXPECT_NE(frames({notes, stubborn}), home);

    ASSERT_EQ(desk.run({"xdotool", "set_desktop", "1"}).code, 0);
    const xcb_window_t shell = desk.open({"xterm", "-T", "shell"}).client;
    desk.drag(shell, {300, 300});
    // Four looks, 15 seconds apart.
    ASSERT_TRUE(desk.awaitLogged("learned layout: 4 windows", 1, 4 * generousSeconds));
    std::ifstream file(desk.vantrelFolder() / "layouts.json");
    std::map<std::string, nlohmann::json> stored;
    const auto document = nlohmann::json::parse(file);
    for (const auto& layout : document.at("layouts")) {
        for (const char* const list : {"windows", "otherWindows"}) {
            for (const auto& window : layout.value(list, nlohmann::json::array())) {
                stored[window.at("title")] = window.at("frame");
            }
        }
    }
    EXPECT_EQ(stored["stubborn"], nlohmann::json(home[1]));
    ASSERT_EQ(desk.run({"xdotool", "set_desktop", "0"}).code, 0);
    hints[5] = hints[6] = 10;
    probe.setValues(stubborn, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", hints);
    desk.drag(notes, {40, 40});
    desk.done({"restore"});
    EXPECT_EQ(frames({notes, stubborn}), home);
}

} // namespace
} // namespace vantrel::live
