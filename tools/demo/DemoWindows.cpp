#include "tools/demo/DemoWindows.h"

#include "tools/desk/EdidBlock.h"

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
};

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
    };
}

} // namespace

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
    }
    desk.awaitStill();
    return actors;
}

} // namespace vantrel::tools
