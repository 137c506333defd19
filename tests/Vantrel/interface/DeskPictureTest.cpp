#include "Vantrel/interface/desk/DeskPicture.h"

#include "Vantrel/controller/PublishedState.h"

#include <gmock/gmock.h>

namespace vantrel {

namespace {

using State = DeskPicture::Window::State;
using testing::ElementsAre;

DisplayInfo display(const std::string& name, const Rect& frame) {
    DisplayInfo info;
    info.uuid = name;
    info.name = name;
    info.frame = frame;
    return info;
}

WindowRecord record(const std::string& app, const std::string& title, const Rect& frame) {
    WindowRecord window;
    window.bundleID = window.appName = app;
    window.title = title;
    window.frame = frame;
    return window;
}

DeskWindow live(const WindowRecord& record, std::uint64_t id) {
    DeskWindow window;
    window.id = WindowID{id};
    window.bundleID = window.appName = record.bundleID;
    window.title = record.title;
    window.kind = WindowKind::ordinary;
    window.isOnScreen = true;
    window.frame = record.frame;
    return window;
}

const Rect left{{0, 0}, {500, 800}};
const Rect right{{500, 0}, {500, 800}};

PublishedState desk(const std::vector<WindowRecord>& remembered) {
    PublishedState state;
    state.configID = "desk";
    state.displays = {display("Wide", {{0, 0}, {1000, 800}})};
    Layout layout;
    layout.layoutName = state.activeLayoutName;
    layout.windows = remembered;
    state.currentLayouts = {layout};
    return state;
}

TEST(DeskPicture, ComparesWhatIsRememberedWithTheLiveWindows) {
    const auto mail = record("mail", "Inbox", left);
    const auto notes = record("notes", "Ideas", right);
    const auto code = record("code", "main", left);
    const auto music = record("music", "Songs", right);
    PublishedState state = desk({mail, notes, code, music});
    auto rounded = mail;
    rounded.frame.size.width += 1.5;
    auto moved = notes;
    moved.frame = left;
    auto stuck = code;
    stuck.frame = right;
    state.lastRestore.emplace();
    state.lastRestore->configID = "desk";
    auto& item = state.lastRestore->report.items.emplace_back();
    item.bundleID = "code";
    item.title = "main";
    item.outcome.kind = RestoreReport::Kind::failed;

    const auto states = [](const DeskPicture& picture) {
        std::vector<State> found;
        for (const auto& window : picture.windows) {
            found.push_back(window.state);
        }
        return found;
    };
    // Nothing is known about the live windows.
    EXPECT_THAT(states(DeskPicture::ofCurrentDesk(state)),
                ElementsAre(State::remembered, State::remembered, State::remembered, State::remembered));

    state.liveWindows = {{live(rounded, 1), live(moved, 2), live(stuck, 3)}};
    const auto picture = DeskPicture::ofCurrentDesk(state);
    EXPECT_THAT(states(picture),
                ElementsAre(State::remembered, State::remembered, State::couldNotMove, State::notRunning));
    EXPECT_EQ(picture.movedCount(), 2U);
    EXPECT_EQ(picture.windows[0].now, std::nullopt);
    EXPECT_EQ(picture.windows[1].frame, right);
    EXPECT_EQ(picture.windows[1].now, left);

    // The application has another window only.
    state.liveWindows = {{live(rounded, 1)}};
    state.currentLayouts[0].windows.push_back(record("mail", "Draft", right));
    EXPECT_EQ(DeskPicture::ofCurrentDesk(state).windows[4].state, State::noWindow);

    state.currentLayouts.clear();
    EXPECT_THAT(states(DeskPicture::ofCurrentDesk(state)), ElementsAre(State::seen));
}

TEST(DeskSpeech, NamesTheApplicationTheTitleAndThePlace) {
    const std::vector<DisplayInfo> displays{display("Wide", {{0, 0}, {1000, 800}}),
                                            display("Tall", {{1000, 0}, {600, 1200}})};
    struct Case {
        Rect frame;
        const char* place;
    };
    const Case cases[] = {
        {left, "left half of Wide"},
        {{{0, 0}, {1000, 800}}, "all of Wide"},
        {{{20, 15}, {470, 780}}, "left half of Wide"},
        {{{330, 0}, {340, 800}}, "middle third of Wide"},
        {{{500, 400}, {500, 400}}, "lower right quarter of Wide"},
        {{{400, 300}, {200, 200}}, "centre of Wide"},
        {{{20, 300}, {200, 200}}, "left side of Wide"},
        {{{1010, 1000}, {150, 150}}, "lower left of Tall"},
        {{{1000, 0}, {600, 600}}, "upper half of Tall"},
    };
    for (const Case& one : cases) {
        DeskPicture::Window window{
            .bundleID = "t", .appName = "Terminal", .title = "build", .frame = one.frame};
        EXPECT_EQ(DeskSpeech::window(window, displays), std::string("Terminal, build, ") + one.place);
    }
    EXPECT_EQ(DeskSpeech::window({.bundleID = "t",
                                  .appName = "Terminal",
                                  .title = "",
                                  .frame = left,
                                  .state = State::notRunning,
                                  .isOutOfSight = false,
                                  .opensWhenMissing = true,
                                  .now = right},
                                 displays),
              "Terminal, left half of Wide, not running, opens when missing, has moved");
}

TEST(DeskSpeech, WalksDisplayByDisplayFromTheTopLeft) {
    DeskPicture picture{
        .displays = {display("Right", {{1000, 0}, {1000, 800}}), display("Left", {{0, 0}, {1000, 800}})},
        .windows = {}};
    for (const Rect& frame : {Rect{{1100, 0}, {100, 100}}, Rect{{600, 300}, {100, 100}},
                              Rect{{700, 10}, {100, 100}}, Rect{{10, 300}, {100, 100}}}) {
        picture.windows.push_back({.bundleID = "a", .appName = "A", .title = "", .frame = frame});
    }
    EXPECT_THAT(DeskSpeech::order(picture), ElementsAre(2, 3, 1, 0));
    EXPECT_EQ(DeskSpeech::desk(picture), "2 displays, 4 windows");
}

} // namespace

} // namespace vantrel
