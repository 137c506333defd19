#include "Vantrel/commands/methods/SettingsMethods.h"

#include "tests/simulated/SimulatedDefaults.h"
#include "tests/simulated/SimulatedTime.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

struct SettingsOverTheBus : testing::Test {
    SimulatedTime time;
    SimulatedDefaults defaults{time};

    ControlAnswer call(const std::string& name, const std::vector<std::string>& arguments = {}) {
        const auto methods = settingsMethods(defaults);
        const auto method = std::ranges::find(methods, name, &ControlMethod::name);
        ControlAnswer answer;
        method->call(arguments, [&](const ControlAnswer& given) { answer = given; });
        return answer;
    }
};

TEST_F(SettingsOverTheBus, AreListedWithValueDefaultAndMeaning) {
    defaults.set("settleDelay", 1.5);
    defaults.set("autoRestore", std::string("no"));
    const auto settings = call("Settings")->at("settings");
    const auto setting = [&](const std::string& key) {
        return *std::ranges::find_if(settings, [&](const auto& each) { return each.at("key") == key; });
    };
    EXPECT_EQ(setting("settleDelay").at("value"), 1.5);
    EXPECT_EQ(setting("settleDelay").at("default"), 0.5);
    EXPECT_EQ(setting("settleDelay").at("isSet"), true);
    EXPECT_EQ(setting("autoRestore").at("value"), true);
    EXPECT_EQ(setting("autoRestore").at("isSet"), false);
    EXPECT_TRUE(setting("undoKeyCode").at("value").is_null());
}

TEST_F(SettingsOverTheBus, AreChangedToWhatTheirKeyTakesAndToNothingElse) {
    EXPECT_EQ(call("SetSetting", {"settleDelay", "2"})->at("value"), 2.0);
    EXPECT_FALSE(call("SetSetting", {"settleDelay", "-1"}));
    EXPECT_EQ(call("SetSetting", {"setleDelay", "1"}).error().sentence,
              "There is no setting \"setleDelay\". See: vantrelctl settings");
    EXPECT_EQ(defaults.number("settleDelay"), 2);
    EXPECT_EQ(call("UnsetSetting", {"settleDelay"})->at("value"), 0.5);
    EXPECT_FALSE(call("UnsetSetting", {"setleDelay"}));
    defaults.failWrites();
    EXPECT_FALSE(call("SetSetting", {"settleDelay", "2"}));
}

} // namespace
} // namespace vantrel::simulated
