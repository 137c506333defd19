#include "tools/demo/DemoWindows.h"

#include "tools/desk/EdidBlock.h"

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <string>

namespace vantrel::tools {

namespace {

constexpr const char* meetingNotes = R"(Meeting notes, Tuesday

- The new office gets two monitors per desk.
- Laptops are undocked at least twice a day.
- Every time, the windows end up in one heap.

Wanted: when the monitor is back, every window
is back, at its place and in its size, without
anybody touching a mouse.

Next: show it.
)";

constexpr const char* recipe = R"(Bread, the easy way

  500 g  flour
  350 g  water
   10 g  salt
    2 g  dry yeast

1. Stir everything in a bowl, cover it.
2. Leave it alone over night.
3. Fold it twice, let it rest for an hour.
4. Bake it in a hot pot: 30 minutes with
   the lid on, 15 without.
)";

constexpr const char* source = R"(#!/usr/bin/env python3
"""Counts the words of a text, the most frequent first."""
import collections
import sys


def words(lines):
    for line in lines:
        yield from line.lower().split()


def main():
    counts = collections.Counter(words(sys.stdin))
    for word, count in counts.most_common(20):
        print(f"{count:6}  {word}")


if __name__ == "__main__":
    main()
)";

constexpr const char* buildLog = R"([ 1/12] Building model/Layout
[ 2/12] Building model/WindowRecord
[ 3/12] Building displays/DisplayTopology
[ 4/12] Building displays/DisplayWatcher
[ 5/12] Building stores/LayoutStore
[ 6/12] Building windows/WindowMatcher
[ 7/12] Building windows/RestoreEngine
[ 8/12] Linking the core
[ 9/12] Building the program
[10/12] Linking the program
[11/12] Building the tests
[12/12] Linking the tests
All tests passed.
)";

struct DemoWindow {
    // The name in the table.
    std::string name;
    std::string program;
    std::vector<std::string> command;
    Rect place;
    std::vector<std::string> states = {};
    // Counted from 1.
    std::uint32_t desktop = 1;
};

struct NamedState {
    const char* name;
    std::vector<const char*> atoms;
};

const std::vector<NamedState> namedStates{
    {"minimised", {"_NET_WM_STATE_HIDDEN"}},
    {"maximised", {"_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_MAXIMIZED_VERT"}},
    {"full screen", {"_NET_WM_STATE_FULLSCREEN"}},
};

// The window manager puts the window into its states and onto its desktop.
void enter(PrivateDesk& desk, xcb_window_t client, const DemoWindow& planned) {
    constexpr std::uint32_t iconic = 3;
    constexpr std::uint32_t add = 1;
    constexpr std::uint32_t fromPager = 2;
    DeskConnection& connection = desk.connection();
    if (planned.desktop > 1) {
        connection.tellWindowManager(client, "_NET_WM_DESKTOP", {planned.desktop - 1, fromPager});
    }
    for (const auto& [name, atoms] : namedStates) {
        if (std::ranges::find(planned.states, name) == planned.states.end()) {
            continue;
        }
        if (atoms.size() == 1 && std::string(name) == "minimised") {
            connection.tellWindowManager(client, "WM_CHANGE_STATE", {iconic});
        } else {
            connection.tellWindowManager(client, "_NET_WM_STATE",
                                         {add, connection.atom(atoms.front()),
                                          atoms.size() > 1 ? connection.atom(atoms.back()) : 0, fromPager});
        }
    }
}

// A terminal that shows the output of `command` and stays open.
std::string shell(const std::string& command) {
    return command + "; exec sleep infinity";
}

std::vector<DemoWindow> demoWindows(const TemporaryHome& home) {
    home.write("Documents/Meeting notes.txt", meetingNotes);
    home.write("Documents/Bread.txt", recipe);
    home.write("Documents/words.py", source);
    home.write("Documents/build.log", buildLog);
    const auto document = [&](const char* name) { return (home.path() / "Documents" / name).string(); };
    return {
        {"Meeting notes",
         "mousepad",
         {"mousepad", "--disable-server", document("Meeting notes.txt")},
         {{60, 60}, {560, 420}}},
        {"Build",
         "xterm",
         {"xterm", "-T", "Build", "-e", "sh", "-c", shell("cat Documents/build.log")},
         {{680, 90}, {560, 330}}},
        {"Calculator", "galculator", {"galculator"}, {{140, 560}, {360, 380}}},
        {"words.py",
         "featherpad",
         {"featherpad", "--standalone", document("words.py")},
         {{1360, 50}, {680, 500}}},
        {"Settings files",
         "xfce4-terminal",
         {"xfce4-terminal", "--disable-server", "--hide-menubar", "-T", "Settings files", "-x", "sh", "-c",
          shell("ls --color=always -C -w 78 /etc")},
         {{2120, 80}, {700, 360}}},
        {"Bread",
         "mousepad",
         {"mousepad", "--disable-server", document("Bread.txt")},
         {{1460, 590}, {480, 280}}},
        {"Machine",
         "xterm",
         {"xterm", "-T", "Machine", "-e", "sh", "-c",
          shell("uname -sr; echo; uptime; echo; free -h; echo; df -h /; echo; ps -e -o pid,comm | tail -5")},
         {{2060, 500}, {660, 340}}},
        {"Log",
         "xterm",
         {"xterm", "-T", "Log", "-e", "sh", "-c", shell("cat Documents/build.log")},
         {{1700, 300}, {500, 300}},
         {"minimised"}},
        {"Report",
         "mousepad",
         {"mousepad", "--disable-server", document("Meeting notes.txt")},
         {{1500, 200}, {600, 420}},
         {"maximised"},
         2},
        {"Slides",
         "featherpad",
         {"featherpad", "--standalone", document("words.py")},
         {{1600, 150}, {640, 440}},
         {"full screen"},
         2},
        {"Shell",
         "xterm",
         {"xterm", "-T", "Shell", "-e", "sh", "-c", shell("ls -l Documents")},
         {{2200, 420}, {560, 320}},
         {},
         2},
    };
}

} // namespace

std::string stateOf(DeskConnection& connection, xcb_window_t client) {
    const auto set = connection.values(client, "_NET_WM_STATE");
    std::vector<std::string> words;
    for (const auto& [name, atoms] : namedStates) {
        const bool hasAll = std::ranges::all_of(atoms, [&](const char* atom) {
            return std::ranges::find(set, connection.atom(atom)) != set.end();
        });
        if (hasAll) {
            words.emplace_back(name);
        }
    }
    const auto desktop = connection.values(client, "_NET_WM_DESKTOP");
    if (!desktop.empty() && desktop[0] != 0) {
        words.push_back(fmt::format("desktop {}", desktop[0] + 1));
    }
    return fmt::format("{}", fmt::join(words, ", "));
}

std::vector<DemoActor> openDemo(PrivateDesk& desk) {
    desk.monitors().setEdid(0, edidBlock({.product = 24, .serialNumber = 1001, .name = "Desk 24"}));
    desk.monitors().setEdid(1, edidBlock({.product = 27, .serialNumber = 1002, .name = "Side 27"}));
    std::vector<DemoActor> actors;
    for (const DemoWindow& planned : demoWindows(desk.home())) {
        const xcb_window_t client = desk.open(planned.command).client;
        desk.place(client, planned.place);
        actors.push_back({.client = client,
                          .story = {.name = planned.name,
                                    .program = planned.program,
                                    .before = {},
                                    .unplugged = std::nullopt,
                                    .after = std::nullopt,
                                    .increment = sizeIncrement(desk.connection(), client)}});
        // A program may start by changing its own window.
        desk.awaitStill();
        enter(desk, client, planned);
    }
    desk.awaitStill();
    return actors;
}

} // namespace vantrel::tools
