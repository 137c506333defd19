#include "Vantrel/commands/terminal/DeskDrawing.h"

#include "Vantrel/commands/terminal/TextCells.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

using namespace vantrel;

namespace {

DisplayInfo display(const std::string& uuid, const std::string& name, const Rect& frame) {
    DisplayInfo info;
    info.uuid = uuid;
    info.name = name;
    info.frame = frame;
    return info;
}

const DisplayInfo laptop = display("A", "Laptop", {{0, 0}, {1200, 800}});
const DisplayInfo monitor = display("B", "Monitor", {{1200, -400}, {2000, 1200}});

WindowRecord window(const std::string& app, Rect frame, std::int64_t order, const std::string& title = {}) {
    return {.bundleID = app,
            .appName = app,
            .title = title,
            .frame = frame,
            .displayUUID = "A",
            .zOrder = order,
            .isGhost = {}};
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        result.push_back(line);
    }
    return result;
}

int widest(const std::string& text) {
    int columns = 0;
    for (const auto& line : lines(text)) {
        columns = std::max(columns, TextCells::width(line));
    }
    return columns;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

} // namespace

TEST(DeskDrawing, ShowsDisplaysAndWindowsToScale) {
    const std::vector<WindowRecord> windows{window("Editor", {{0, 0}, {600, 800}}, 0),
                                            window("Mail", {{900, 100}, {1000, 500}}, 1)};
    EXPECT_EQ("\n" + DeskDrawing::drawing({laptop, monitor}, windows, {.columns = 64, .rows = 30}), R"(
                        ┏━ Monitor 2000×1200 ━━━━━━━━━━━━━━━━━━┓
                        ┃                                      ┃
                        ┃                                      ┃
                        ┃                                      ┃
┏━ Laptop 1200×800 ━━━━┓┃                                      ┃
┃┌─────────┐           ┃┃────────────┐                         ┃
┃│1 Editor │      ┌────┃┃l           │                         ┃
┃│         │      │2 Ma┃┃            │                         ┃
┃│         │      │    ┃┃────────────┘                         ┃
┃│         │      └────┃┃                                      ┃
┃└─────────┘           ┃┃                                      ┃
┗━━━━━━━━━━━━━━━━━━━━━━┛┗━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━━┛
)");
}

TEST(DeskDrawing, TheFrontWindowCoversTheOneBehind) {
    const std::vector<WindowRecord> windows{window("Back", {{100, 100}, {1000, 600}}, 5),
                                            window("Front", {{300, 200}, {800, 400}}, 2)};
    EXPECT_EQ("\n" + DeskDrawing::drawing(
                         {laptop}, windows,
                         {.columns = 24, .rows = 30, .characters = DeskDrawing::Characters::ascii}),
              R"(
#= Laptop 1200x800 ====#
#                      #
#  +----------------+  #
#  |2 B+------------+  #
#  |   |1 Front     |  #
#  +---+------------+  #
#                      #
#======================#
)");
}

TEST(DeskDrawing, NeverGetsWiderOrHigherThanAsked) {
    const auto tower = display("C", "高さ方向の画面", {{-1080, 0}, {1080, 19200}});
    const auto speck = display("D", "a very long display name", {{3200, 0}, {10, 10}});
    std::vector<WindowRecord> windows;
    for (int i = 0; i < 40; ++i) {
        windows.push_back(
            window("アプリケーション", {{-5000.0 + i * 400, i * 300.0}, {900, 700}}, i,
                   "title 🏳️‍🌈 \x1b[31m " + std::string(static_cast<std::size_t>(i) * 10, 'x')));
    }
    for (const int columns : {20, 40, 80, 200}) {
        const DeskDrawing::Options options{.columns = columns, .rows = 24};
        const std::vector displays{laptop, monitor, tower, speck};
        const auto drawn = DeskDrawing::drawing(displays, windows, options);
        EXPECT_LE(widest(drawn), columns);
        EXPECT_GT(widest(drawn), 0);
        EXPECT_LE(lines(drawn).size(), 26U);
        const auto listed = DeskDrawing::windowList(displays, windows, options);
        EXPECT_LE(widest(listed), columns);
        EXPECT_EQ(lines(listed).size(), windows.size());
        EXPECT_FALSE(contains(drawn + listed, "\x1b"));
    }
}

TEST(DeskDrawing, HasNothingToShowWithoutDisplaysOrRoom) {
    const std::vector<WindowRecord> windows{window("Editor", {{0, 0}, {600, 800}}, 0)};
    EXPECT_EQ(DeskDrawing::drawing({}, windows, {}), "");
    EXPECT_EQ(DeskDrawing::drawing({laptop}, windows, {.columns = 3}), "");
    EXPECT_EQ(DeskDrawing::windowList({laptop}, {}, {}), "");
}

TEST(DeskDrawing, ListsWindowsByTheirNumbersFromTheFront) {
    const std::vector<WindowRecord> windows{window("Editor", {{10.5, 20}, {600, 800}}, 9, "notes.txt"),
                                            window("日本語", {{0, 0}, {5, 6}}, 3, "")};
    EXPECT_EQ(DeskDrawing::windowList({laptop, monitor}, windows, {}),
              "  1 日本語                                                  5×6 at 0,0 on Laptop\n"
              "  2 Editor           notes.txt                        600×800 at 10,20 on Laptop\n");
}

TEST(DeskDrawing, TellsDisplaysOfTheSameNameApart) {
    auto twin = laptop;
    twin.uuid = "T";
    twin.frame.origin.x = 1200;
    const auto drawn = DeskDrawing::drawing({laptop, twin}, {}, {});
    EXPECT_TRUE(contains(drawn, "Laptop (left)") && contains(drawn, "Laptop (right)")) << drawn;
    EXPECT_TRUE(contains(DeskDrawing::windowList({laptop, twin}, {window("Mail", {{0, 0}, {5, 5}}, 0)}, {}),
                         "on Laptop (left)"));
}

TEST(TextCells, CountsWhatATerminalShows) {
    struct Case {
        const char* text;
        int width;
    };
    for (const auto& [text, width] :
         {Case{"abc", 3}, Case{"日本", 4}, Case{"é", 1}, Case{"e\u0301", 1}, Case{"👩‍👩‍👧", 2},
          Case{"❤️", 2}, Case{"\t", 1}, Case{"\xff", 1}, Case{"한글", 4}, Case{"", 0}}) {
        EXPECT_EQ(TextCells::width(text), width) << text;
    }
}

TEST(TextCells, CutsBetweenCharactersAndFillsUp) {
    EXPECT_EQ(TextCells::fitted("日本語", 5, "…"), "日本…");
    EXPECT_EQ(TextCells::fitted("日本語", 4, "…"), "日…");
    EXPECT_EQ(TextCells::padded("日本語", 4, "…"), "日… ");
    EXPECT_EQ(TextCells::fitted("abc", 3, "…"), "abc");
    EXPECT_EQ(TextCells::fitted("abc", 0, "…"), "");
}
