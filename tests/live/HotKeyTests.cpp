// The hot keys as real keys.
#include "tests/live/VantrelDesk.h"

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

// The key codes of the keys that have R and S on an American keyboard, with the evdev rules.
constexpr const char* placeOfR = "27";
constexpr const char* placeOfS = "39";

class RealKeys : public UnderWindowManager {
protected:
    void run(const std::vector<std::string>& command) { ASSERT_EQ(desk.run(command).code, 0); }

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

    // A press may come while the program takes its keys anew because the keyboard has changed; it is then
    // nobody's, as the user who presses again knows.
    void expectSave(const std::string& key,
                    const std::vector<std::string>& modifiers = {"Super_L", "Shift_L"}) {
        constexpr double secondsToSave = 10;
        const auto before = desk.logged("save layout: ");
        EXPECT_TRUE(waitUntil([&] {
            press(modifiers, key);
            ++presses;
            return waitUntil([&] { return desk.logged("save layout: ") > before; }, secondsToSave);
        }));
    }

    // Of the keys that save.
    std::size_t presses = 0;
    xcb_window_t window = desk.open({"galculator"}).client;
    ProgramRun vantrel = desk.startVantrel();
};

INSTANTIATE_TEST_SUITE_P(Under, RealKeys, windowManagers(), windowManagerName);

TEST_P(RealKeys, RunTheirActionOnceWhateverLocksAndLayoutSay) {
    expectSave(placeOfS);
    for (const auto& change : std::vector<std::vector<std::string>>{
             {"xdotool", "key", "Caps_Lock"},
             {"xdotool", "key", "Num_Lock"},
             {"setxkbmap", "-layout", "us,ru", "-option", "grp:menu_toggle"},
             {"xdotool", "key", "ISO_Next_Group"},
         }) {
        SCOPED_TRACE(testing::PrintToString(change));
        run(change);
        expectSave(placeOfS);
    }
    // Neither other modifiers nor other keys do it; and what came before ran once.
    press({"Super_L", "Shift_L", "Control_L"}, placeOfS);
    press({"Super_L"}, placeOfS);
    press({"Super_L", "Shift_L"}, placeOfR);
    EXPECT_TRUE(waitUntil([&] { return desk.logged("restore report:") == 1; }));
    EXPECT_LE(desk.logged("save layout: "), presses);
}

TEST_P(RealKeys, GoAlongWhenTheirPlacesGetOtherKeyCodes) {
    desk.done({"hotkeys", "set", "save", "Super+Control+Up"});
    // The two sets of key codes that X has, and the upward arrow's in each.
    using Codes = std::pair<const char*, const char*>;
    for (const auto& [codes, up] : {Codes{"xfree86", "98"}, Codes{"evdev", "111"}, Codes{"xfree86", "98"}}) {
        SCOPED_TRACE(codes);
        run({"setxkbmap", "-keycodes", std::string(codes) + "+aliases(qwerty)"});
        expectSave(up, {"Super_L", "Control_L"});
    }
}

TEST_P(RealKeys, ACombinationThatAnotherProgramHoldsIsShownAndTakenWhenItIsFree) {
    // Both window managers hold it themselves.
    desk.done({"hotkeys", "set", "undo", "Alt+F4"});
    EXPECT_THAT(desk.done({"hotkeys"}), testing::HasSubstr("refused"));
    desk.done({"hotkeys", "set", "undo", "Control+Alt+Shift+F9"});
    EXPECT_THAT(desk.done({"hotkeys"}), testing::Not(testing::HasSubstr("refused")));
    EXPECT_THAT(desk.refused({"hotkeys", "set", "undo", "Super+Shift+S"}),
                testing::HasSubstr("Already used by Save layout now"));
    EXPECT_THAT(desk.refused({"hotkeys", "set", "quickSwitcher", "Super+F9"}),
                testing::HasSubstr("Quick switcher is not available yet"));
    desk.done({"settings", "set", "quickSwitcherKeyCode", "101"});
    desk.done({"settings", "set", "quickSwitcherModifiers", "256"});
    EXPECT_TRUE(waitUntil([&] { return desk.done({"hotkeys"}).contains("(not available yet)"); }));
}

} // namespace
} // namespace vantrel::live
