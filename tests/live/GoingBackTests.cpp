// Undo, the stash and named layouts as a user types them, with real programs under real window managers.
#include "tests/live/ProgramRun.h"
#include "tests/live/WindowManagers.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr MonitorPlace left{0, 0, 1280, 1024};
constexpr MonitorPlace right{1280, 0, 1600, 900};

// Two programs on two monitors, and vantrel beside them.
class GoingBack : public testing::TestWithParam<const char*> {
protected:
    using Frames = std::vector<Rect>;

    Frames frames() {
        Frames result;
        for (const xcb_window_t client : m_clients) {
            const auto window = seenWindow(m_desk.connection(), client);
            result.push_back(window ? window->frame : Rect{});
        }
        return result;
    }

    // As the user moves them.
    void place(const std::vector<Point>& corners) {
        for (std::size_t i = 0; i < corners.size(); ++i) {
            m_desk.place(m_clients[i], {corners[i], frames()[i].size});
            ASSERT_TRUE(m_desk.connection().waitUntil([&] { return frames()[i].origin == corners[i]; }));
        }
    }

    std::string done(const std::vector<std::string>& arguments) {
        const auto ended = vantrelctl(m_desk, arguments);
        EXPECT_EQ(ended.code, 0) << ended.output;
        return ended.output;
    }

    std::string refused(const std::vector<std::string>& arguments) {
        const auto ended = vantrelctl(m_desk, arguments);
        EXPECT_EQ(ended.code, 1) << ended.output;
        return ended.output;
    }

    PrivateDesk m_desk{{left, right}, GetParam()};
    std::vector<xcb_window_t> m_clients{m_desk.open({"galculator"}).client,
                                        m_desk.open({"xterm", "-T", "notes"}).client};
    ProgramRun m_vantrel = startVantrel(m_desk);
};

TEST_P(GoingBack, ADeskPutAsideComesBackAndThatCanBeUndone) {
    EXPECT_THAT(done({"stash"}), HasSubstr("Nothing is stashed."));
    EXPECT_THAT(refused({"stash", "back"}), HasSubstr("Nothing is stashed on this desk."));
    EXPECT_THAT(refused({"undo"}), HasSubstr("There is nothing to undo."));
    place({{100, 120}, {1500, 200}});
    const auto aside = frames();
    EXPECT_THAT(done({"stash", "now"}), HasSubstr("Put 2 windows of "));
    EXPECT_EQ(frames(), aside);
    EXPECT_THAT(done({"stash", "list"}),
                AllOf(HasSubstr("* "), HasSubstr("  2 windows"), HasSubstr("kept until")));

    place({{1600, 300}, {40, 500}});
    const auto between = frames();
    EXPECT_THAT(done({"stash", "back"}), HasSubstr("Restored 2 of 2 windows"));
    EXPECT_EQ(frames(), aside);
    EXPECT_TRUE(nlohmann::json::parse(done({"stash", "list", "--json"})).at("stashes").empty());

    EXPECT_THAT(done({"undo"}), HasSubstr("Restored 2 of 2 windows"));
    EXPECT_EQ(frames(), between);
    const auto again = nlohmann::json::parse(done({"stash", "--json"}));
    ASSERT_EQ(again.at("stashes").size(), 1U);
    const std::string id = again.at("activeStash");
    EXPECT_THAT(done({"stash", "back", id.substr(0, 8)}), HasSubstr("Restored 2 of 2 windows"));
    EXPECT_EQ(frames(), aside);
}

TEST_P(GoingBack, LayoutsAreSavedSwitchedRenamedAndDeleted) {
    place({{100, 120}, {1500, 200}});
    const auto home = frames();
    done({"save"});
    place({{1600, 300}, {40, 500}});
    const auto work = frames();
    EXPECT_THAT(done({"layouts", "save", "Work"}), HasSubstr("as \"Work\""));

    done({"layouts", "switch", "Default"});
    EXPECT_EQ(frames(), home);
    EXPECT_THAT(done({"layouts"}), AllOf(HasSubstr("* Default"), HasSubstr("  Work")));
    EXPECT_THAT(refused({"layouts", "switch", "Play"}), HasSubstr("There is no layout of that name."));
    done({"layouts", "apply", "Work"});
    EXPECT_EQ(frames(), work);
    done({"undo"});
    EXPECT_EQ(frames(), home);

    EXPECT_THAT(refused({"layouts", "rename", "Work", "Default"}), HasSubstr("already has a layout"));
    EXPECT_THAT(done({"layouts", "rename", "Work", "Büro"}), HasSubstr("is now called \"Büro\""));
    EXPECT_THAT(done({"layouts", "delete", "Default"}), HasSubstr("The active layout is \"Büro\"."));
    ASSERT_TRUE(m_desk.connection().waitUntil([&] { return frames() == work; }));
    EXPECT_EQ(nlohmann::json::parse(done({"layouts", "--json"})).at("layouts").size(), 1U);
}

TEST_P(GoingBack, APinnedLayoutThatIsDraggedAwayIsPutBack) {
    done({"save"});
    done({"pin"});
    const auto home = frames();
    place({{300, 400}, {1500, 300}});
    // Drift must be seen at two looks, which are 15 seconds apart.
    EXPECT_TRUE(waitUntil([&] { return frames() == home; }, 3 * generousSeconds));
    EXPECT_THAT(done({"log"}), HasSubstr("pinned drift: enforcing"));
    EXPECT_THAT(done({"history"}), HasSubstr("pinned enforcement"));
}

INSTANTIATE_TEST_SUITE_P(WindowManagers, GoingBack, testedWindowManagers(), windowManagerName);

} // namespace
} // namespace vantrel::live
