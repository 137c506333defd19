#include "Vantrel/commands/ControlAnswers.h"

#include <gtest/gtest.h>

using namespace vantrel;

namespace {

Layout layout(const std::string& desk, const std::string& deskName, const std::string& name) {
    Layout result;
    result.configID = desk;
    result.name = deskName;
    result.layoutName = name;
    return result;
}

std::string summary(const DesksMessage& message) {
    std::string text;
    for (const auto& desk : message.desks) {
        text += desk.name + (desk.isCurrent ? "*" : "") + ":";
        for (const auto& each : desk.layouts) {
            text += " " + each.layoutName + (each.layoutName == desk.activeLayoutName ? "!" : "");
        }
        text += "; ";
    }
    return text;
}

} // namespace

TEST(ControlAnswers, DesksBeginWithThePresentOneAndGoOnByName) {
    PublishedState state;
    state.configID = "here";
    state.configName = "Laptop";
    state.activeLayoutName = "Reading";
    const auto active = [](const std::string& desk) { return desk == "b" ? "Other" : "Default"; };
    const std::vector layouts{layout("z", "Zoo", "Default"),        layout("b", "Attic", "Zebra"),
                              layout("here", "Kitchen", "Reading"), layout("b", "Attic", "Default"),
                              layout("b", "Attic", "Other"),        layout("here", "Kitchen", "Default")};

    EXPECT_EQ(summary(ControlAnswers::desks(state, layouts, active)),
              "Kitchen*: Default Reading!; Attic: Default Other! Zebra; Zoo: Default!; ");
    EXPECT_EQ(summary(ControlAnswers::desks(state, {}, active)), "Laptop*:; ");
    EXPECT_EQ(summary(ControlAnswers::desks({}, {}, active)), "");
}

TEST(ControlAnswers, AStatusTellsOfTheActiveLayout) {
    PublishedState state;
    state.configID = "here";
    state.phase = {Phase::Restored{3, 0.5}};
    state.currentLayouts = {layout("here", "Desk", "Default"), layout("here", "Desk", "Reading")};
    state.currentLayouts[1].windows.resize(2);
    state.activeLayoutName = "Reading";

    const auto status = ControlAnswers::status(state, "/data");
    EXPECT_EQ(status.savedWindows, 2);
    EXPECT_EQ(status.layoutNames, (std::vector<std::string>{"Default", "Reading"}));
    EXPECT_EQ(status.phase, (PhaseMessage{"restored", 3, 0.5, "3 windows put back in 0.5 s"}));

    state.activeLayoutName = "Gone";
    EXPECT_EQ(ControlAnswers::status(state, "/data").savedWindows, std::nullopt);
    EXPECT_EQ(ControlAnswers::status(state, "/data").savedAt, std::nullopt);
}
