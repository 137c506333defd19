#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using testing::HasSubstr;

// The set-up with its external displays on other connectors, and so under other identifiers.
DeskSetup onOtherConnectors(const std::string& name) {
    DeskSetup setup = DeskSetup::named(name);
    for (SimulatedDisplay& display : setup.displays) {
        if (!display.isBuiltin) {
            display.uuid->back() = static_cast<char>(display.uuid->back() + 4);
        }
    }
    std::ranges::reverse(setup.displays.begin() + 1, setup.displays.end());
    return setup;
}

struct TwinMonitors : LearnedDesk {
    TwinMonitors() : LearnedDesk("laptop-and-twins") {}

    void connect(const DeskSetup& setup) {
        story.desk.change(setup);
        story.runFor(14);
    }
};

TEST_F(TwinMonitors, AreRecognisedOnOtherConnectorsAndAllThatIsStoredFollows) {
    story.move(story.mail, {{-1500, 0}, {900, 650}});
    story.controller->scenes().saveCurrentAsScene("Work", {});
    story.runFor(70);
    home = story.frames();
    const std::string former = story.published().configID;
    story.connect("laptop");
    connect(onOtherConnectors("laptop-and-twins"));
    EXPECT_EQ(story.frames(), home);
    EXPECT_NE(story.published().configID, former);
    EXPECT_EQ(story.published().scenes.at(0).configID, story.published().configID);
    EXPECT_FALSE(story.published().sameDeskOffer);

    story.move(story.terminal, {{-1000, 300}, {640, 400}});
    story.learn();
    home = story.frames();
    const auto undoable = [&] { return story.published().applicableUndo() != nullptr; };
    EXPECT_TRUE(undoable());
    story.connect("laptop");
    story.controller->setEnabled(false);
    story.connect("laptop-and-twins");
    EXPECT_TRUE(undoable()) << "the last restore moved windows of the same desk on the other connectors";
    story.connect("laptop");
    story.controller->setEnabled(true);
    story.connect("laptop-and-twins");
    EXPECT_EQ(story.published().configID, former);
    EXPECT_EQ(story.frames(), home) << "what was learned on the other connectors counts";
    EXPECT_GE(story.logged("desk recognised: "), 2U);
    EXPECT_THAT(story.store().allLayouts(), SizeIs(1));
}

TEST_F(TwinMonitors, SwapTheirWindows) {
    const Rect onLeft{{-1500, 0}, {900, 650}};
    const Rect onRight{{1860, 0}, {900, 650}};
    story.move(story.mail, onLeft);
    story.move(story.terminal, onRight);
    const Rect onPanel = story.frame(story.browserLeft);
    for (const auto& [first, second] :
         {std::pair("", ""), std::pair("Office 24 (right)", "Office 24 (left)")}) {
        ASSERT_TRUE(story.controller->displaySwap().swap(first, second, tell()));
        story.runFor(2);
        EXPECT_EQ(toldKinds().back(), RestoreOutcome::Kind::finished);
        const bool isSwapped = *first == 0;
        EXPECT_EQ(story.frame(story.mail), isSwapped ? onRight : onLeft);
        EXPECT_EQ(story.frame(story.terminal), isSwapped ? onLeft : onRight);
        EXPECT_EQ(story.frame(story.browserLeft), onPanel);
    }
    const auto problem = [&](const char* first, const char* second) {
        return story.controller->displaySwap().swap(first, second, {}).error();
    };
    EXPECT_EQ(problem("built-in", "Built-in Display"), "These are the same display.");
    EXPECT_THAT(problem("built-in", "Nothing"), HasSubstr("Nothing"));
    story.connect("laptop");
    EXPECT_THAT(problem("", ""), StartsWith("This desk has no two equal displays."));
}

struct SerialMonitor : TwinMonitors {
    SerialMonitor() { story.connect("laptop-and-monitor"); }
};

TEST_F(SerialMonitor, IsOfferedAsTheSameDeskOnAnotherPortAndJoinedWhenTheUserSaysSo) {
    story.scatter();
    story.move(story.terminal, {{1800, 0}, {640, 400}});
    story.learn();
    home = story.frames();
    const std::string former = story.published().configID;
    story.connect("laptop");
    connect(onOtherConnectors("laptop-and-monitor"));
    EXPECT_NE(story.frames(), home);
    ASSERT_TRUE(story.published().sameDeskOffer);
    EXPECT_EQ(story.published().sameDeskOffer->configID, former);
    story.scatter(100);
    story.learn();

    using Kind = DeskJoining::Kind;
    AppController& controller = *story.controller;
    const std::string present = story.published().configID;
    EXPECT_EQ(controller.joinDesks("Nowhere", present).kind, Kind::noSuchDesk);
    EXPECT_EQ(controller.joinDesks(present, present).kind, Kind::alreadyOne);
    for (const Layout& layout : story.store().allLayouts()) {
        if (layout.displays.size() != 2) {
            EXPECT_EQ(controller.joinDesks(layout.configID, present).kind, Kind::differentDisplays);
        }
    }
    EXPECT_EQ(controller.joinDesks("", "").kind, Kind::done);
    EXPECT_EQ(controller.joinDesks("", "").kind, Kind::nothingOffered);
    story.runFor(14);
    EXPECT_EQ(story.frames(), home);
    EXPECT_FALSE(story.published().sameDeskOffer);
    EXPECT_THAT(story.published().currentLayouts,
                ElementsAre(Field(&Layout::layoutName, "Default"), Field(&Layout::layoutName, "Default 2")));

    story.connect("laptop");
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frames(), home) << "joined for good";
    EXPECT_EQ(story.logged("desk recognised: "), 1U);
}

} // namespace
} // namespace vantrel::simulated
