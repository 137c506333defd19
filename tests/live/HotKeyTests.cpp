#include "tests/live/ProgramRun.h"
#include "tests/live/demo/RunningVantrel.h"
#include "tests/live/desk/Waiting.h"

#include <gtest/gtest.h>

namespace vantrel::live {
namespace {

// The key codes of the keys that have Q, R and S on an American keyboard, with the evdev rules.
constexpr const char* placeOfR = "27";
constexpr const char* placeOfS = "39";

class RealKeys : public testing::Test {
protected:
    RealKeys() { desk.open({"galculator"}); }

    void run(const std::vector<std::string>& command) { ASSERT_EQ(desk.run(command).exitCode, 0); }

    void press(const std::vector<std::string>& modifiers, const std::string& key) {
        std::vector<std::string> command{"xdotool"};
        for (const auto& modifier : modifiers) {
            command.insert(command.end(), {"keydown", modifier});
        }
        command.insert(command.end(), {"key", key});
        for (const auto& modifier : modifiers) {
            command.insert(command.end(), {"keyup", modifier});
        }
        run(command);
    }

    PrivateDesk desk{{MonitorPlace{0, 0, 1280, 800}}, "openbox"};
};

TEST_F(RealKeys, RunTheirActionOnceWhateverLocksAndLayoutSay) {
    RunningVantrel vantrel(desk, {VANTREL_PROGRAM, VANTRELCTL_PROGRAM});
    std::size_t saves = 0;
    const auto expectOneSave = [&](const char* when) {
        press({"Super_L", "Shift_L"}, placeOfS);
        ++saves;
        EXPECT_TRUE(waitUntil([&] { return vantrel.linesLogged("save layout: ") >= saves; })) << when;
    };
    expectOneSave("at first");
    run({"xdotool", "key", "Caps_Lock"});
    expectOneSave("with Caps Lock");
    run({"xdotool", "key", "Num_Lock"});
    expectOneSave("with Caps Lock and Num Lock");
    run({"setxkbmap", "-layout", "us,ru", "-option", "grp:menu_toggle"});
    expectOneSave("after the keyboard map changed");
    run({"xdotool", "key", "ISO_Next_Group"});
    expectOneSave("under the second layout");

    // Neither other modifiers nor other keys do it; and what came before ran once.
    press({"Super_L", "Shift_L", "Control_L"}, placeOfS);
    press({"Super_L"}, placeOfS);
    press({"Super_L", "Shift_L"}, placeOfR);
    EXPECT_TRUE(waitUntil([&] { return vantrel.linesLogged("restore report:") == 1; }));
    EXPECT_EQ(vantrel.linesLogged("save layout: "), saves) << vantrel.log();
}

TEST_F(RealKeys, ACombinationThatAnotherProgramHoldsIsShownAndTakenWhenItIsFree) {
    // openbox holds it itself.
    RunningVantrel vantrel(desk, {VANTREL_PROGRAM, VANTRELCTL_PROGRAM});
    ASSERT_EQ(vantrelctl(desk, {"hotkeys", "set", "undo", "Alt+F4"}).code, 0);
    EXPECT_NE(vantrelctl(desk, {"hotkeys"}).output.find("refused"), std::string::npos);
    ASSERT_EQ(vantrelctl(desk, {"hotkeys", "set", "undo", "Control+Alt+F9"}).code, 0);
    EXPECT_EQ(vantrelctl(desk, {"hotkeys"}).output.find("refused"), std::string::npos);
    const auto conflict = vantrelctl(desk, {"hotkeys", "set", "undo", "Super+Shift+S"});
    EXPECT_EQ(conflict.code, 1);
    EXPECT_NE(conflict.output.find("Already used by Save layout now"), std::string::npos) << conflict.output;
}

} // namespace
} // namespace vantrel::live
