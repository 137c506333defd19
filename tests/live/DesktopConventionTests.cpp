// What a desktop expects of a program: a launcher that activates it over the bus, start at login, its
// folders, a tray item with a title.
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

using ::testing::HasSubstr;

bool showsOwnWindow(VantrelDesk& desk) {
    return std::ranges::any_of(seenWindows(desk.connection()), [](const SeenWindow& window) {
        return window.isViewable && window.className == "Vantrel";
    });
}

TEST(DesktopConventions, ALauncherStartsItRunsItsActionsAndOpensThePanel) {
    VantrelDesk desk("openbox");
    desk.open({"galculator"});
    desk.home().write("services/org.vantrel.Vantrel.service",
                      "[D-BUS Service]\nName=org.vantrel.Vantrel\nExec=" VANTREL_PROGRAM "\n");
    const auto launch = [&](const std::vector<std::string>& words) {
        std::vector<std::string> command{"gapplication"};
        command.insert(command.end(), words.begin(), words.end());
        const auto ended = desk.run(command);
        EXPECT_EQ(ended.code, 0) << ended.output;
    };
    launch({"action", "org.vantrel.Vantrel", "SaveLayout"});
    EXPECT_TRUE(waitUntil([&] { return desk.control({"restore"}).code == 0; }));
    EXPECT_FALSE(showsOwnWindow(desk));
    launch({"action", "org.vantrel.Vantrel", "RestoreNow"});
    EXPECT_TRUE(desk.awaitLogged("restore report:", 2));
    EXPECT_NE(desk.run({"gapplication", "action", "org.vantrel.Vantrel", "Nonsense"}).code, 0);
    launch({"launch", "org.vantrel.Vantrel"});
    EXPECT_TRUE(waitUntil([&] { return showsOwnWindow(desk); }));
}

// systemd's user manager, as far as vantrel talks to it. It answers while the test processes events.
class Systemd final : public QDBusVirtualObject {
public:
    explicit Systemd(VantrelDesk& desk)
        : m_voice(desk.bus().address(), "systemd", "org.freedesktop.systemd1") {
        m_unitFile = (desk.home().path() / "vantrel.service").string();
        std::ofstream(m_unitFile) << "[Service]\nExecStart=" VANTREL_PROGRAM "\n";
        m_voice.bus().registerVirtualObject("/org/freedesktop/systemd1", this, QDBusConnection::SubPath);
    }

    bool isEnabled = false;
    bool runsTheSession = true;

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        bus.send(message.createReply(replyTo(message.member(), message.arguments())));
        return true;
    }

private:
    QVariantList replyTo(const QString& method, const QVariantList& arguments) {
        if (method == "GetUnitFileState") {
            return {isEnabled ? "enabled" : "disabled"};
        }
        if (method == "LoadUnit") {
            return {QVariant::fromValue(QDBusObjectPath("/org/freedesktop/systemd1/unit"))};
        }
        if (method == "Get") {
            const QString value = arguments.at(1) == "ActiveState"
                                      ? QString(runsTheSession ? "active" : "inactive")
                                      : QString::fromStdString(m_unitFile);
            return {QVariant::fromValue(QDBusVariant(value))};
        }
        isEnabled = method == "EnableUnitFiles";
        return {};
    }

    std::string m_unitFile;
    BusVoice m_voice;
};

TEST(DesktopConventions, StartsAtLoginByItsUnitWhereSystemdRunsTheSessionElseByAnEntry) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    VantrelDesk desk("openbox");
    Systemd systemd(desk);
    const auto entry = desk.home().configFolder() / "autostart" / "vantrel.desktop";
    const auto becomes = [&](bool unit, bool file) {
        return waitUntil([&] {
            QCoreApplication::processEvents();
            return systemd.isEnabled == unit && std::filesystem::exists(entry) == file;
        });
    };
    desk.home().writeSettings("launchAtLogin = true\n");
    {
        ProgramRun run(desk, {VANTREL_PROGRAM});
        EXPECT_TRUE(becomes(true, false));
        EXPECT_TRUE(desk.awaitLogged("autostart: vantrel.service enabled"));
        desk.home().writeSettings("launchAtLogin = false\n");
        EXPECT_TRUE(becomes(false, false));
        std::ignore = run.endedBy(SIGTERM);
    }
    systemd.isEnabled = true;
    systemd.runsTheSession = false;
    desk.home().writeSettings("launchAtLogin = true\n");
    ProgramRun run(desk, {VANTREL_PROGRAM});
    EXPECT_TRUE(becomes(false, true));
    EXPECT_EQ(desk.run({"desktop-file-validate", entry.string()}).output, "");
}

TEST(DesktopConventions, ShellsOfferTheNamesOfWhatIsRemembered) {
    VantrelDesk desk("openbox");
    desk.open({"galculator"});
    const auto vantrel = desk.startVantrel();
    desk.done({"save-scene", "Deep work"});
    desk.done({"layouts", "save", "Bob's late shift"});
    desk.done({"desks", "rename", "Home office"});
    desk.done({"rules", "set", "Galculator", "--ignore"});
    const std::string folder = std::filesystem::path(VANTRELCTL_PROGRAM).parent_path();
    // What the shell makes of `line` when Tab is pressed at its end.
    const auto inBash = [&](const std::string& line) {
        return desk
            .run({"bash", "--norc", "-c",
                  "PATH=$0:$PATH; source <(vantrelctl completion bash); eval COMP_WORDS=($1); "
                  "COMP_WORDS=(${COMP_WORDS[@]} \"$2\"); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                  "_vantrelctl; echo \"${COMPREPLY[*]}\"",
                  folder, line, ""})
            .output;
    };
    const auto inZsh = [&](const std::string& line) {
        return desk
            .run({"zsh", "-fc",
                  "PATH=$0:$PATH; autoload -U compinit; compinit -u -D; "
                  "source <(vantrelctl completion zsh); "
                  "_describe() { print -l -- $candidates; }; "
                  "words=(${(z)1} ''); CURRENT=$#words; _vantrelctl",
                  folder, line})
            .output;
    };
    const auto inFish = [&](const std::string& line) {
        return desk
            .run({"fish", "--no-config", "-c",
                  "set -x PATH " + folder + " $PATH; vantrelctl completion fish | source; complete -C '" +
                      line + " '"})
            .output;
    };
    const struct {
        const char* line;
        const char* inBash;
        const char* name;
    } rows[] = {
        {"vantrelctl apply", "Deep\\ work", "Deep work"},
        {"vantrelctl layouts switch", "Bob\\'s\\ late\\ shift", "Bob's late shift"},
        {"vantrelctl desks forget", "Home\\ office", "Home office"},
        {"vantrelctl rules remove", "Galculator", "Galculator"},
        {"vantrelctl hotkeys set", "quickSwitcher", "quickSwitcher"},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(inBash(row.line), HasSubstr(row.inBash)) << row.line;
        EXPECT_THAT(inZsh(row.line), HasSubstr(row.name)) << row.line;
        EXPECT_THAT(inFish(row.line), HasSubstr(row.name)) << row.line;
    }
}

TEST(DesktopConventions, WhatAnOlderVersionKeptElsewhereIsMovedOnce) {
    VantrelDesk desk("openbox");
    const auto older = desk.home().dataFolder() / "Vantrel";
    desk.open({"galculator"});
    {
        auto first = desk.startVantrel();
        desk.done({"save"});
        std::ignore = first.endedBy(SIGTERM);
    }
    std::filesystem::remove(desk.stateFolder() / "vantrel.lock");
    for (const auto& entry : std::filesystem::directory_iterator(desk.stateFolder())) {
        std::filesystem::rename(entry.path(), desk.vantrelFolder() / entry.path().filename());
    }
    std::filesystem::rename(desk.vantrelFolder(), older);

    auto second = desk.startVantrel();
    EXPECT_EQ(desk.logged("start: vantrel"), 2U) << "the log goes on";
    EXPECT_EQ(desk.logged("files: moved from"), 2U);
    EXPECT_TRUE(std::filesystem::exists(desk.stateFolder() / "session.json"));
    EXPECT_FALSE(std::filesystem::exists(older));
    EXPECT_THAT(desk.done({"restore"}), HasSubstr("Restored 1 of 1 window"));
}

} // namespace
} // namespace vantrel::live
