// What can be asked over the session bus, on a controller with a simulated desk: hostile and ambiguous
// arguments.
#include "Vantrel/commands/BusSignals.h"
#include "Vantrel/commands/CommandTable.h"
#include "Vantrel/commands/shell/CompletionValues.h"
#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

namespace vantrel::simulated {
namespace {

using testing::HasSubstr;

struct BusMethods : testing::Test {
    Story story{"laptop-and-twins"};

    BusMethods() {
        story.openPrograms();
        story.start();
        story.learn();
    }

    std::vector<ControlMethod> methods() {
        return methodsOf(everyCommand(), *story.controller, "/support/Vantrel");
    }

    ControlAnswer call(const std::string& name, const std::vector<std::string>& arguments = {}) {
        const auto all = methods();
        const auto method = std::ranges::find(all, name, &ControlMethod::name);
        ControlAnswer answer = std::unexpected(ControlRefusal{"", "no answer"});
        method->call(arguments, [&](const ControlAnswer& given) { answer = given; });
        story.runFor(5);
        return answer;
    }

    // Why it is refused.
    std::string refusal(const std::string& name, const std::vector<std::string>& arguments) {
        const auto answer = call(name, arguments);
        return answer ? answer->dump() : answer.error().sentence;
    }

    std::string ruleDisplay() { return call("Rules")->at("rules")[0].at("action").at("displayName"); }
};

TEST_F(BusMethods, ADeskIsRenamedAlsoWhileItsActiveLayoutIsMissing) {
    const auto file = std::filesystem::path("/support/Vantrel/layouts.json");
    auto layouts = nlohmann::json::parse(story.files.content(file).value());
    layouts["activeLayouts"][story.published().configID] = "gone";
    story.files.put(file, layouts.dump());
    story.start();
    ASSERT_EQ(story.published().activeLayout(), nullptr);
    EXPECT_EQ(call("RenameDesk", {"", " Studio "})->at("name"), "Studio");
    EXPECT_EQ(call("Desks")->at("desks")[0].at("name"), "Studio");
    EXPECT_EQ(call("Status")->at("configName"), "Studio");
    EXPECT_FALSE(call("Pin"));
    EXPECT_FALSE(call("Restore"));
}

TEST_F(BusMethods, DesksThatAreNotPresentAreNamedByNameOrID) {
    ASSERT_TRUE(call("RenameDesk", {"", "Office"}));
    const std::string office = story.published().configID;
    story.connect("laptop");
    story.learn();
    EXPECT_EQ(call("RenameLayout", {"office", "Default", "Everyday"})->at("configName"), "Office");
    EXPECT_TRUE(call("PinLayout", {office, "Everyday"}));
    EXPECT_EQ(refusal("DeleteLayout", {"Office", "Default"}), "This desk has no layout with that name.");
    EXPECT_EQ(refusal("ForgetDesk", {"Home"}), "There is no remembered desk \"Home\". See: vantrelctl desks");
    ASSERT_TRUE(call("RenameDesk", {"", "office"}));
    EXPECT_THAT(refusal("ForgetDesk", {"Office"}), HasSubstr("More than one desk is called"));
    EXPECT_TRUE(call("ForgetDesk", {office}));
    EXPECT_EQ(call("Desks")->at("desks").size(), 1U);
    EXPECT_EQ(call("Undelete")->at("what"), "the desk \"Office\"");
    EXPECT_EQ(call("Desks")->at("desks")[1].at("layouts")[0].at("layoutName"), "Everyday");
}

TEST_F(BusMethods, OneOfTwinDisplaysIsNamedByItsLabelAndNothingElse) {
    EXPECT_EQ(refusal("SetRule", {"Mail", "display", "Office 24", "false"}),
              "\"Office 24\" matches more than one display: Office 24 (left), Office 24 (right). Name one of "
              "them.");
    EXPECT_THAT(refusal("SetRule", {"Mail", "display", "Office", "false"}), HasSubstr("more than one"));
    EXPECT_EQ(
        refusal("SetRule", {"Mail", "display", "TV", "false"}),
        "No display \"TV\" is known. Known displays: Built-in Display, Office 24 (left), Office 24 (right).");
    const auto rule = call("SetRule", {"Mail", "display", "office 24 (RIGHT)", "false"});
    EXPECT_EQ(rule->at("action").at("uuid"), "A1D1E0C4-0000-4B7E-9C55-1B4E7D0A0002");
    EXPECT_EQ(ruleDisplay(), "Office 24 (right)");

    ASSERT_TRUE(call("SaveScene", {"Work"}));
    EXPECT_THAT(refusal("SetSceneWallpaper", {"Work", "Office 24", "/a.png"}), HasSubstr("more than one"));
    const auto scene = call("SetSceneWallpaper", {"Work", "Office 24 (left)", "/a.png"});
    EXPECT_EQ(scene->at("wallpaper").at("perDisplay"),
              (nlohmann::json{{"A1D1E0C4-0000-4B7E-9C55-1B4E7D0A0001", "/a.png"}}));

    // A display that is not there keeps the label it had.
    story.connect("laptop");
    EXPECT_EQ(ruleDisplay(), "Office 24 (right)");
}

TEST_F(BusMethods, OtherProgramsHearWhatHasChanged) {
    BusSignals signals(story.published());
    std::set<std::string> heard;
    nlohmann::json last;
    const auto observer = story.controller->addObserver([&](Topics changed) {
        for (const auto& signal : signals.after(story.published(), changed)) {
            heard.insert(signal.name);
            last = signal.content;
        }
    });
    const auto changes = [&](const char* method, const std::vector<std::string>& arguments) {
        heard.clear();
        EXPECT_TRUE(call(method, arguments)) << method;
        return heard;
    };
    EXPECT_EQ(changes("SetSetting", {"settleDelay", "2"}), (std::set<std::string>{"SettingsChanged"}));
    EXPECT_EQ(last.at("keys").dump(), "[\"settleDelay\"]");
    EXPECT_EQ(changes("SetRule", {"Mail", "ignore", "", "false"}), (std::set<std::string>{"RulesChanged"}));
    EXPECT_EQ(changes("CreateEmptyScene", {"Work"}), (std::set<std::string>{"ScenesChanged"}));
    EXPECT_EQ(changes("RenameDesk", {"", "Office"}),
              (std::set<std::string>{"DesksChanged", "LayoutsChanged"}));
    EXPECT_TRUE(changes("Restore", {}).contains("RestoreFinished"));
    // Until the phase no longer tells of it.
    story.runFor(10);
    EXPECT_EQ(changes("Desks", {}), std::set<std::string>());
    story.controller->removeObserver(observer);
}

TEST_F(BusMethods, ArgumentsBeyondReasonAreRefusedBeforeAnythingReadsThem) {
    const auto all = methods();
    const auto& method = *std::ranges::find(all, "RenameDesk", &ControlMethod::name);
    EXPECT_EQ(refusalOf({{"", std::string(maxArgumentLength, 'x')}}, method), std::nullopt);
    EXPECT_EQ(refusalOf({{"", std::string(maxArgumentLength + 1, 'x')}}, method),
              "RenameDesk takes strings of at most 16384 bytes.");
    EXPECT_EQ(refusalOf(std::nullopt, method), "RenameDesk takes 2 string arguments.");
    ASSERT_TRUE(call("SaveScene", {"Work"}));
    const std::string nested = std::string(8000, '[') + std::string(8000, ']');
    EXPECT_EQ(refusal("AddTrigger", {"calendar", "", nested}), "The scenes must be a JSON array of strings.");
}

TEST_F(BusMethods, ScenesAreRefusedInTheWordsOfTheSettings) {
    ASSERT_TRUE(call("SaveScene", {"Work"}) && call("PinScene", {"Work"}));
    EXPECT_EQ(refusal("SaveScene", {"Work"}), "That scene is pinned. Unpin it to update it.");
    for (int number = 2; number <= 12; ++number) {
        ASSERT_TRUE(call("CreateEmptyScene", {std::to_string(number)}));
    }
    EXPECT_EQ(refusal("CreateEmptyScene", {"13"}), "12 scenes max. Delete one to add another.");
}

TEST_F(BusMethods, SettingsAcceptOnlyValuesOfTheirType) {
    EXPECT_EQ(call("SetSetting", {"settleDelay", "2"})->at("value"), 2.0);
    EXPECT_FALSE(call("SetSetting", {"settleDelay", "-1"}));
    EXPECT_EQ(refusal("SetSetting", {"setleDelay", "1"}),
              "There is no setting \"setleDelay\". Did you mean \"settleDelay\"? See: vantrelctl settings");
    EXPECT_EQ(story.defaults.number("settleDelay"), 2);
    EXPECT_EQ(call("UnsetSetting", {"settleDelay"})->at("value"), 0.5);
    EXPECT_FALSE(call("UnsetSetting", {"setleDelay"}));
    story.defaults.failWrites();
    EXPECT_FALSE(call("SetSetting", {"settleDelay", "2"}));
}

TEST_F(BusMethods, ShellsCompleteWhatTheProgramKnows) {
    ASSERT_TRUE(call("SaveScene", {"Deep work"}));
    ASSERT_TRUE(call("AddTrigger", {"schedule", "9:30", R"(["Deep work"])"}));
    ASSERT_TRUE(call("SetRule", {"Mail", "ignore", "", "false"}));
    bool isRunning = true;
    const auto first = [&](ValueKind kind, const std::map<std::string, std::string>& typed = {}) {
        const auto values = CompletionValues::of(
            kind, typed,
            {.ask = [&](const char* method) { return isRunning ? *call(method) : nlohmann::json::object(); },
             .files = story.files,
             .storeFolders = {"/support/Vantrel"}});
        return values.empty() ? "" : values.front().word;
    };
    const std::string desk = story.published().deskName();
    EXPECT_EQ(first(ValueKind::scene), "Deep work");
    EXPECT_EQ(first(ValueKind::desk), desk);
    EXPECT_EQ(first(ValueKind::layout), "Default");
    EXPECT_EQ(first(ValueKind::layout, {{"--desk", desk}}), "Default");
    EXPECT_EQ(first(ValueKind::layout, {{"--desk", "Elsewhere"}}), "");
    EXPECT_EQ(first(ValueKind::display), "Built-in Display");
    EXPECT_EQ(first(ValueKind::trigger), "1");
    EXPECT_EQ(first(ValueKind::ruledApplication), "Mail");
    EXPECT_NE(first(ValueKind::application), "");
    EXPECT_EQ(first(ValueKind::settingKey), "enabled");
    EXPECT_EQ(first(ValueKind::settingValue, {{"KEY", "autoRestore"}}), "true");
    EXPECT_EQ(first(ValueKind::settingValue, {{"KEY", "settleDelay"}}), "0.5");
    EXPECT_EQ(first(ValueKind::storeCopy), "");
    story.files.put("/support/Vantrel/scenes.json.corrupt",
                    *story.files.content("/support/Vantrel/scenes.json"));
    EXPECT_EQ(first(ValueKind::storeCopy), "scenes.json.corrupt");
    isRunning = false;
    EXPECT_EQ(first(ValueKind::scene) + first(ValueKind::layout) + first(ValueKind::settingKey), "");
    EXPECT_EQ(first(ValueKind::shortcut), "restore");
}

} // namespace
} // namespace vantrel::simulated
