// The hot keys, pressed as real keys.
#include "tests/live/VantrelDesk.h"

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

// The key codes of R and S on an American keyboard under the evdev rules.
constexpr const char* codeOfR = "27";
constexpr const char* codeOfS = "39";

class HotKeys : public UnderWindowManager {
protected:
    using Words = std::vector<std::string>;

    void run(const Words& command) { ASSERT_EQ(desk.run(command).code, 0); }

    void press(const Words& modifiers, const std::string& key) {
        Words command{"xdotool"};
        for (const auto& modifier : modifiers) {
            command.insert(command.end(), {"keydown", modifier});
        }
        command.insert(command.end(), {"key", key});
        for (const auto& modifier : modifiers) {
            command.insert(command.end(), {"keyup", modifier});
        }
        run(command);
    }

    // Presses again when nothing happens: while vantrel grabs its keys anew after a change of the keyboard, a
    // press is lost.
    void expectSave(const std::string& key, const Words& modifiers = {"Super_L", "Shift_L"}) {
        constexpr double secondsToSave = 10;
        const auto before = desk.logged("save layout: ");
        EXPECT_TRUE(waitUntil([&] {
            press(modifiers, key);
            ++presses;
            return desk.awaitLogged("save layout: ", before + 1, secondsToSave);
        }));
    }

    // Of keys that save.
    std::size_t presses = 0;
    xcb_window_t window = desk.open({"galculator"}).client;
    ProgramRun vantrel = desk.startVantrel();
};

INSTANTIATE_TEST_SUITE_P(Under, HotKeys, windowManagers(), windowManagerName);

TEST_P(HotKeys, RunTheirActionOnceWhateverTheLocksTheLayoutAndTheKeyCodes) {
    expectSave(codeOfS);
    for (const auto& change : std::vector<Words>{
             {"xdotool", "key", "Caps_Lock"},
             {"xdotool", "key", "Num_Lock"},
             {"setxkbmap", "-layout", "us,ru", "-option", "grp:menu_toggle"},
             {"xdotool", "key", "ISO_Next_Group"},
         }) {
        SCOPED_TRACE(testing::PrintToString(change));
        run(change);
        expectSave(codeOfS);
    }
    // Other modifiers or keys do not save, and each press above saved once.
    press({"Super_L", "Shift_L", "Control_L"}, codeOfS);
    press({"Super_L"}, codeOfS);
    press({"Super_L", "Shift_L"}, codeOfR);
    EXPECT_TRUE(desk.awaitLogged("restore report:"));
    EXPECT_LE(desk.logged("save layout: "), presses);

    // Both window managers hold Alt+F4 themselves.
    desk.done({"hotkeys", "set", "undo", "Alt+F4"});
    EXPECT_THAT(desk.done({"hotkeys"}), testing::HasSubstr("refused"));
    desk.done({"hotkeys", "set", "undo", "Control+Alt+Shift+F9"});
    EXPECT_THAT(desk.done({"hotkeys"}), testing::Not(testing::HasSubstr("refused")));

    // X has two sets of key codes, with a different code for the up arrow in each.
    desk.done({"hotkeys", "set", "save", "Super+Control+Up"});
    using Codes = std::pair<const char*, const char*>;
    for (const auto& [codes, up] : {Codes{"xfree86", "98"}, Codes{"evdev", "111"}}) {
        SCOPED_TRACE(codes);
        run({"setxkbmap", "-keycodes", std::string(codes) + "+aliases(qwerty)"});
        expectSave(up, {"Super_L", "Control_L"});
    }
}

} // namespace
} // namespace vantrel::live
