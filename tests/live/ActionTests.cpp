// The actions that any program may call over the session bus: what they reply, and why they refuse.
#include "tests/live/VantrelDesk.h"

#include <gtest/gtest.h>

namespace vantrel::live {
namespace {

TEST(Actions, ReplyWithWhatTheyDidOrWhyNot) {
    VantrelDesk desk("openbox");
    // Opened before vantrel, which would place a program that starts later.
    const auto window = desk.open({"galculator"}).client;
    const auto vantrel = desk.startVantrel();
    using Arguments = std::vector<std::string>;
    const auto call = [&](const std::string& action, const Arguments& arguments = {}) {
        return desk.callOnBus("org.vantrel.Vantrel", "/org/vantrel/Vantrel",
                              "org.vantrel.Vantrel.Actions." + action, arguments);
    };
    const auto expectDone = [&](const std::string& action, const std::string& message,
                                const Arguments& arguments = {}) {
        EXPECT_EQ(call(action, arguments), "('" + message + "',)\n");
    };
    // What the reply depends on may still be on its way to the program.
    const auto expectRefused = [&](const std::string& action, const std::string& message,
                                   const Arguments& arguments = {}) {
        const auto expected = "Error: GDBus.Error:org.vantrel.Error.NothingHappened: " + message + "\n";
        std::string reply;
        EXPECT_TRUE(waitUntil([&] { return (reply = call(action, arguments)) == expected; })) << reply;
    };
    const auto comesTo = [&](Point corner) {
        return waitUntil([&] { return desk.frame(window).origin == corner; });
    };
    expectRefused("UndoLastRestore", "There is nothing to undo.");
    desk.done({"save"});
    const Point home = desk.frame(window).origin;
    constexpr Point away{300, 100};
    desk.drag(window, away);
    expectDone("RestoreNow", "1 window put back.");
    EXPECT_TRUE(comesTo(home));
    expectDone("UndoLastRestore", "Undid the last restore.");
    EXPECT_TRUE(comesTo(away));

    expectDone("SaveScene", "Saved the desk as \"Work\".", {"Work"});
    const auto scenes = call("Scenes");
    const std::string mark = "\"id\":\"";
    const auto begin = scenes.find(mark) + mark.size();
    const auto id = scenes.substr(begin, scenes.find('"', begin) - begin);
    expectDone("ApplyScene", "Applied \"Work\".", {id});
    desk.done({"settings", "set", "enabled", "false"});
    expectRefused(
        "ApplyScene",
        "Nothing moved. Vantrel may be paused, missing Accessibility permission, or past its trial.", {id});
}

} // namespace
} // namespace vantrel::live
