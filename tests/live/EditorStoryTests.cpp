// Scenes made and changed in the editor by real drags and keys, on two window
// managers.
#include "tests/live/UserAtDesk.h"
#include "tools/desk/Picture.h"

#include <cmath>
#include <csignal>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

constexpr MonitorPlace leftMonitor{0, 0, 1280, 900};
constexpr MonitorPlace rightMonitor{1280, 0, 1024, 768};
// Zones leave a gap of 8 between them.
constexpr Rect leftHalf{{0, 0}, {636, 900}};
constexpr Rect rightHalf{{644, 0}, {636, 900}};

class EditorStories : public testing::TestWithParam<const char*> {
protected:
    void edit(const std::string& scene) {
        desk.done({"workbench", "scenes"});
        user.clickOn(scene);
        user.clickOn("Edit");
        user.await("Search apps");
    }

    // The middle of what is called so, once it stays where it is.
    Point middleOf(const std::string& name) {
        Control control = user.await(name);
        std::ignore = waitUntil([&] {
            const Rect before = control.frame;
            control = user.await(name);
            return control.frame == before;
        });
        return control.frame.center();
    }
    // What the drawing shows of this application's window.
    Control box(const std::string& app) {
        std::optional<Control> found;
        std::ignore = waitUntil([&] {
            for (const Control& control : user.controls()) {
                if (control.role == "list item" && control.name.starts_with(app + ",")) {
                    found = control;
                }
            }
            return found.has_value();
        });
        return found.value();
    }
    // A place on the drawing, as parts of a display's width and height.
    Point onDrawing(std::size_t display, double across, double down) {
        constexpr double leastHeight = 60;
        std::vector<Rect> displays;
        for (const Control& control : user.controls()) {
            if (control.role == "list item" && !control.is("focusable") &&
                control.frame.height() > leastHeight) {
                displays.push_back(control.frame);
            }
        }
        const Rect& frame = displays.at(display);
        return {frame.minX() + frame.width() * across, frame.minY() + frame.height() * down};
    }

    // Presses the button, moves in steps as a hand does, and releases it; `key`
    // is held while it moves.
    void drag(Point from, Point to, const std::string& key = {}) {
        constexpr int steps = 12;
        std::vector<std::string> command{"xdotool"};
        const auto add = [&](std::initializer_list<std::string> words) {
            command.insert(command.end(), words);
        };
        const auto move = [&](double share) {
            add({"mousemove", "--sync", fmt::format("{:.0f}", from.x + (to.x - from.x) * share),
                 fmt::format("{:.0f}", from.y + (to.y - from.y) * share)});
        };
        move(0);
        add({"mousedown", "1"});
        if (!key.empty()) {
            add({"keydown", key});
        }
        for (int step = 1; step <= steps; ++step) {
            move(static_cast<double>(step) / steps);
            add({"sleep", "0.03"});
        }
        add({"sleep", "0.2", "mouseup", "1"});
        if (!key.empty()) {
            add({"keyup", key});
        }
        EXPECT_EQ(desk.run(command).code, 0);
    }

    std::string placeOf(xcb_window_t window) {
        const Rect frame = desk.frame(window);
        return fmt::format("{}, {}, {} × {}", frame.minX(), frame.minY(), frame.width(), frame.height());
    }
    bool isSaved() { return !user.await("Save").is("enabled"); }
    bool eventually(const std::function<bool()>& condition) { return desk.connection().waitUntil(condition); }

    // In the order of the stored windows.
    std::vector<Rect> storedFrames() {
        std::ifstream file(desk.vantrelFolder() / "scenes.json");
        const auto stored = nlohmann::json::parse(file);
        std::vector<Rect> frames;
        for (const auto& window : stored.at("scenes").at(0).at("layout").at("windows")) {
            frames.push_back(window.at("frame").get<Rect>());
        }
        return frames;
    }
    void keepPicture(const std::string& name) {
        Picture::take(desk.connection())
            .save(std::filesystem::path(PICTURES_FOLDER) / fmt::format("editor-{}-{}.png", name, GetParam()));
    }

    VantrelDesk desk{GetParam(), {leftMonitor, rightMonitor}};
    UserAtDesk user{desk};
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, EditorStories, windowManagers(), windowManagerName);

TEST_P(EditorStories, AnEmptySceneGetsThreeWindowsIsTriedTakenBackSavedAndAppliedAfterARestart) {
    const auto text = desk.open({"mousepad", "--disable-server"}).client;
    const auto shell = desk.open({"xterm", "-T", "shell"}).client;
    desk.drag(text, {100, 100});
    desk.drag(shell, {600, 250});
    const Rect home = desk.frame(text);
    const Rect shellHome = desk.frame(shell);
    auto vantrel = user.startVantrel();
    desk.done({"scenes", "new", "Work"});
    edit("Work");
    drag(middleOf("Mousepad"), onDrawing(0, 0.01, 0.5));
    drag(middleOf("XTerm"), onDrawing(0, 0.99, 0.5));
    drag(middleOf("Galculator"), onDrawing(1, 0.5, 0.5));
    keepPicture("made");

    // The terminal takes only whole characters, and stands in the middle of what is left.
    constexpr double character = 12;
    const auto isArranged = [&] {
        return desk.frame(text) == leftHalf &&
               std::abs(desk.frame(shell).minX() - rightHalf.minX()) < character;
    };
    user.clickOn("Try it");
    EXPECT_TRUE(eventually(isArranged));
    user.clickOn("Go back");
    EXPECT_TRUE(eventually([&] { return desk.frame(text) == home && desk.frame(shell) == shellHome; }));
    EXPECT_FALSE(isSaved());
    user.press({"ctrl+s"});
    user.await("The scene was saved.");
    EXPECT_TRUE(isSaved());
    ASSERT_EQ(storedFrames().size(), 3U);
    EXPECT_EQ(storedFrames()[0], leftHalf);
    EXPECT_EQ(storedFrames()[1], rightHalf);

    ASSERT_EQ(vantrel.endedBy(SIGTERM).code, 0);
    vantrel = user.startVantrel();
    desk.done({"apply", "Work"});
    EXPECT_TRUE(eventually(isArranged)) << placeOf(text) << ", " << placeOf(shell);
    EXPECT_TRUE(eventually([&] {
        return std::ranges::any_of(seenWindows(desk.connection()), [&](const SeenWindow& window) {
            return window.client != text && window.client != shell && window.frame.minX() >= 1280;
        });
    })) << "the calculator was opened in its place";
}

TEST_P(EditorStories, BoxesAreDraggedThereAndBackMadeColumnsAndResizedByKeysAndTheKeysUndone) {
    const auto text = desk.open({"mousepad", "--disable-server"}).client;
    const auto shell = desk.open({"xterm", "-T", "shell"}).client;
    desk.drag(text, {100, 100});
    desk.drag(shell, {600, 250});
    const auto vantrel = user.startVantrel();
    desk.done({"save-scene", "Work"});
    edit("Work");
    const Point start = box("Mousepad").frame.center();
    const Point there = onDrawing(1, 0.5, 0.5);
    drag(start, there, "alt");
    EXPECT_FALSE(isSaved());
    EXPECT_GE(box("Mousepad").frame.minX(), onDrawing(1, 0, 0).x);
    drag(there, start, "alt");
    EXPECT_TRUE(isSaved()) << "it stands where it stood";

    user.press({"ctrl+a"});
    user.clickOn("Columns");
    keepPicture("columns");
    user.press({"ctrl+s"});
    user.await("The scene was saved.");
    EXPECT_THAT(storedFrames(), testing::UnorderedElementsAre(leftHalf, rightHalf));

    const Point middle = box("Mousepad").frame.center();
    click(desk, middle);
    const std::vector<std::string> narrowing(20, "ctrl+shift+Left");
    const std::vector<std::string> lowering(20, "ctrl+Up");
    user.press(narrowing);
    EXPECT_FALSE(isSaved());
    user.press({"ctrl+s"});
    EXPECT_TRUE(eventually([&] {
        return std::ranges::any_of(storedFrames(),
                                   [](const Rect& frame) { return frame.width() == leftHalf.width() - 200; });
    }));
    user.press(lowering);
    user.press({"ctrl+s"});
    EXPECT_TRUE(eventually([&] { return isSaved(); }));
    for (int i = 0; i < 40; ++i) {
        user.press({"ctrl+z"});
    }
    user.press({"ctrl+s"});
    EXPECT_TRUE(eventually([&] {
        const auto frames = storedFrames();
        return std::ranges::count(frames, leftHalf) + std::ranges::count(frames, rightHalf) == 2;
    }));
    user.clickOn("Back to the scenes");
    user.clickOn("Apply");
    EXPECT_TRUE(eventually([&] {
        const Rect frame = desk.frame(text);
        return frame == leftHalf || frame == rightHalf;
    }));
}

} // namespace
} // namespace vantrel::live
