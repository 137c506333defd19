#include "tests/VantrelCore/windows/ScriptedWindow.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Rect frame{{100, 100}, {400, 300}};

// Every reading gives new elements for the same windows.
class Element final : public WindowElement {
public:
    explicit Element(std::shared_ptr<ScriptedWindow> window) : m_window(std::move(window)) {}

    bool isSameWindow(const WindowElement& other) const override {
        const auto* const element = dynamic_cast<const Element*>(&other);
        return element != nullptr && element->m_window == m_window;
    }
    WindowAttributes read(AttributeGroup group) override { return m_window->read(group); }
    std::vector<bool> write(std::span<const FrameWrite> writes) override { return m_window->write(writes); }
    bool setMinimized(bool isMinimized) override { return m_window->setMinimized(isMinimized); }
    bool raise() override { return m_window->raise(); }

private:
    std::shared_ptr<ScriptedWindow> m_window;
};

struct Program {
    RunningApp app;
    std::vector<std::shared_ptr<ScriptedWindow>> windows{};
};

class Reading final : public DeskReading {
public:
    explicit Reading(const std::vector<Program>& programs) : m_programs(programs) {}

    std::vector<WindowListEntry> onScreenWindows() override {
        std::vector<WindowListEntry> entries;
        for (const Program& program : m_programs) {
            for (const auto& window : program.windows) {
                entries.push_back({normalWindowLayer, program.app.pid, window->attributes.frame()});
            }
        }
        return entries;
    }
    std::vector<RunningApp> runningApps() override {
        std::vector<RunningApp> apps;
        std::ranges::transform(m_programs, std::back_inserter(apps), &Program::app);
        return apps;
    }
    std::vector<WindowReading> windows(const RunningApp& app) override {
        std::vector<WindowReading> readings;
        for (const auto& window : std::ranges::find(m_programs, app, &Program::app)->windows) {
            readings.push_back({std::make_shared<Element>(window), window->attributes});
        }
        return readings;
    }

private:
    const std::vector<Program>& m_programs;
};

class AccessibilityDeskTest : public testing::Test, private Accessibility {
protected:
    AccessibilityDeskTest() {
        programs.push_back({.app = {.pid = 7, .bundleID = "org.example.notes", .localizedName = "Notes"}});
        first = open("same", frame);
        second = open("other", {{700, 100}, {400, 300}});
    }

    // Front-most.
    std::shared_ptr<ScriptedWindow> open(const std::string& title, const Rect& at) {
        auto window = std::make_shared<ScriptedWindow>(journal);
        window->attributes.title = title;
        window->attributes.subrole = standardWindowSubrole;
        window->setFrame(at);
        programs.back().windows.insert(programs.back().windows.begin(), window);
        return window;
    }

    std::vector<WindowID> captured(const CaptureFilter& filter = {}) {
        std::vector<WindowID> ids;
        for (const DeskWindow& window : desk.capture(filter).windows) {
            ids.push_back(window.id);
        }
        return ids;
    }

    std::optional<DeskWindow> look(WindowID window) { return desk.look(std::array{window}).front(); }

    Journal journal;
    InTurn background;
    MovePermit permit;
    std::vector<Program> programs;
    std::shared_ptr<ScriptedWindow> first;
    std::shared_ptr<ScriptedWindow> second;
    AccessibilityDesk desk{*this, background};

private:
    bool isTrusted() override { return true; }
    bool prompt() override { return true; }
    bool awaitQuiet() override { return true; }
    std::unique_ptr<DeskReading> beginReading() override { return std::make_unique<Reading>(programs); }
};

TEST_F(AccessibilityDeskTest, AWindowKeepsItsIdentityUntilItCloses) {
    const auto ids = captured();
    ASSERT_EQ(ids.size(), 2U);
    second->attributes.title = "same";
    second->setFrame(frame);
    std::ranges::reverse(programs.back().windows);
    EXPECT_THAT(captured(), testing::UnorderedElementsAreArray(ids));
    EXPECT_EQ(look(ids[0])->title, "same");

    std::erase(programs.back().windows, second);
    second->attributes = {};
    open("same", frame);
    EXPECT_FALSE(look(ids[0]));
    EXPECT_EQ(look(ids[1])->id, ids[1]);
    const auto later = captured();
    EXPECT_EQ(later.size(), 2U);
    EXPECT_THAT(later, testing::Contains(ids[1]));
    EXPECT_THAT(later, testing::Not(testing::Contains(ids[0])));

    programs.clear();
    EXPECT_THAT(captured(), IsEmpty());
    EXPECT_FALSE(look(ids[1]));
}

TEST_F(AccessibilityDeskTest, AFilterLeavesApplicationsOutUnlessItNamesThem) {
    EXPECT_EQ(captured({.ignoredBundleIDs = {"org.example.notes"}}).size(), 0U);
    EXPECT_EQ(captured({.excludedBundleID = "org.example.notes"}).size(), 0U);
    programs.push_back({.app = {.pid = 8, .bundleID = "org.example.mail", .localizedName = "Mail"}});
    const CaptureFilter onlyMail{.onlyBundleIDs = std::set<std::string>{"org.example.mail"}};
    EXPECT_THAT(captured(onlyMail), IsEmpty());
    open("Inbox", frame)->attributes.isMinimized = true;
    EXPECT_EQ(captured(onlyMail).size(), 1U) << "even with nothing on screen";
}

TEST_F(AccessibilityDeskTest, AnOrderMinimizesAWindowAndShowsItAgain) {
    const auto ids = captured();
    for (const bool isMinimized : {true, false}) {
        const WindowOrder order{.window = ids[0],
                                .target = {.position = Point{5, 5}},
                                .place = PlaceTarget{.states = {.isMinimized = isMinimized}}};
        const auto outcome = desk.arrange(std::array{order}, permit).front();
        EXPECT_TRUE(outcome.isTaken && outcome.hasPlace);
        EXPECT_EQ(second->attributes.isMinimized, isMinimized);
        EXPECT_EQ(second->attributes.position, (Point{5, 5}));
    }
}

TEST_F(AccessibilityDeskTest, OrdersForUnknownWindowsAreNotTaken) {
    const auto ids = captured();
    programs.clear();
    EXPECT_THAT(captured(), IsEmpty());
    const WindowOrder order{.window = ids[0], .target = {.position = Point{5, 5}}, .raises = true};
    EXPECT_THAT(desk.arrange(std::array{order, order}, permit),
                ElementsAre(WindowOutcome(), WindowOutcome()));
    EXPECT_FALSE(desk.watchUserMoves(ids).front());
}

} // namespace
} // namespace vantrel
