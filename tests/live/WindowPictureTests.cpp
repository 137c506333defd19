// Pictures of windows, taken from a real server: of which windows, and of which not.
#include "Vantrel/platform/x11/WindowCapture.h"
#include "tests/live/UserAtDesk.h"
#include "tests/live/WindowDesk.h"
#include "tools/desk/Picture.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <map>
#include <xcb/res.h>

namespace vantrel::live {
namespace {

// How many programs and connections the server serves.
std::uint32_t clientCount(DeskConnection& connection) {
    const Reply<xcb_res_query_clients_reply_t> reply(
        xcb_res_query_clients_reply(connection.xcb(), xcb_res_query_clients(connection.xcb()), nullptr));
    return reply ? reply->num_clients : 0;
}

class PicturesUnder : public WindowsUnder {
protected:
    // 0 before there is a picture.
    std::uint32_t colourOf(WindowID window) {
        const std::scoped_lock lock(mutex);
        const auto found = pictures.find(window);
        return found == pictures.end() ? 0 : found->second.pixels[found->second.pixels.size() / 2];
    }
    void paint(xcb_window_t window, std::uint32_t colour) {
        xcb_connection_t* const xcb = desk.probe.connection().xcb();
        xcb_change_window_attributes(xcb, window, XCB_CW_BACK_PIXEL, &colour);
        xcb_clear_area(xcb, 0, window, 0, 0, 0, 0);
        desk.probe.connection().finish();
    }
    WindowID show(const char* title, const Rect& area, std::uint32_t colour) {
        windows[title] = desk.probe.show({.title = title, .area = area});
        paint(windows[title], colour);
        return desk.captured(title).id;
    }

    std::mutex mutex;
    std::map<WindowID, WindowPicture> pictures;
    std::map<std::string, xcb_window_t> windows;
    WindowCapture capture{[this](WindowID window, WindowPicture picture) {
                              const std::scoped_lock lock(mutex);
                              pictures[window] = std::move(picture);
                          },
                          desk.display()};
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, PicturesUnder, windowManagers(), windowManagerName);

TEST_P(PicturesUnder, ShowCoveredAndChangedWindowsUntilNobodyWantsThem) {
    const auto before = clientCount(desk.connection());
    const WindowID covered = show("covered", {{300, 300}, {800, 500}}, 0xcc2222);
    const WindowID front = show("front", {{250, 250}, {900, 650}}, 0x22cc22);
    const WindowID ignored = show("ignored", {{100, 100}, {300, 200}}, 0x2222cc);
    // The same window with the mark of another: its number is used again.
    const WindowID stranger{static_cast<std::uint64_t>(front) ^ (std::uint64_t{1} << 40U)};

    capture.follow({covered, stranger, front});
    EXPECT_TRUE(eventually([&] { return colourOf(covered) == 0xffcc2222; }));
    {
        const std::scoped_lock lock(mutex);
        EXPECT_EQ(pictures[covered].width, WindowCapture::longestSide);
        EXPECT_EQ(pictures[covered].height, WindowCapture::longestSide * 5 / 8);
        EXPECT_EQ(pictures[covered].pixels.front(), 0xffcc2222U) << "the window manager's frame is left out";
    }
    paint(windows["covered"], 0xcccc22);
    EXPECT_TRUE(eventually([&] { return colourOf(covered) == 0xffcccc22; }));
    EXPECT_EQ(colourOf(stranger), 0U);
    EXPECT_EQ(colourOf(ignored), 0U);

    // Neither a minimised window nor one that is gone takes the others' pictures away.
    desk.connection().tellWindowManager(windows["covered"], "WM_CHANGE_STATE", {3});
    EXPECT_TRUE(eventually([&] { return desk.captured("covered").states.isMinimized; }));
    paint(windows["covered"], 0x111111);
    desk.probe.destroy(windows["ignored"]);
    capture.follow({covered, ignored, front});
    EXPECT_TRUE(eventually([&] { return colourOf(front) == 0xff22cc22; }));
    EXPECT_EQ(colourOf(covered), 0xffcccc22);

    EXPECT_EQ(clientCount(desk.connection()), before + 1);
    capture.follow({});
    EXPECT_TRUE(eventually([&] { return clientCount(desk.connection()) == before; }));
}

// A program whose colour is seen nowhere else.
class PicturesInTheWorkbench : public testing::TestWithParam<const char*> {
protected:
    // Whether the right monitor, where only the workbench is, shows the program's colour.
    bool isPictured() {
        const auto screen = Picture::take(desk.connection());
        int found = 0;
        for (std::size_t y = 0; y < 900; ++y) {
            for (std::size_t x = 1280; x < 2880; ++x) {
                const auto [blue, green, red] = screen.colourAt(x, y);
                const auto isNear = [](int a, int b) { return std::abs(a - b) < 4; };
                found += isNear(red, 0xe0) && isNear(green, 0x21) && isNear(blue, 0x8a) ? 1 : 0;
            }
        }
        return found > 100;
    }
    bool eventually(const std::function<bool()>& condition, double seconds = generousSeconds) {
        return desk.connection().waitUntil(condition, seconds);
    }

    VantrelDesk desk{GetParam()};
    UserAtDesk user{desk};
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, PicturesInTheWorkbench, windowManagers(), windowManagerName);

TEST_P(PicturesInTheWorkbench, AreThereOnlyIfTheUserWantsThemAndNotOfAppsThatAreLeftAlone) {
    const auto terminal = desk.open({"xterm", "-bg", "#e0218a", "-fg", "#e0218a"}).client;
    desk.place(terminal, {{100, 100}, {900, 700}});
    const auto vantrel = user.startVantrel();
    // Rules are for applications that are remembered.
    desk.done({"save"});
    const auto alone = clientCount(desk.connection());
    desk.done({"workbench", "scenes"});
    user.await("Save this desk as a scene");
    for (const SeenWindow& window : seenWindows(desk.connection())) {
        if (window.client != terminal) {
            desk.place(window.client, {{1300, 40}, {1100, 760}});
        }
    }
    desk.awaitStill();
    constexpr double aWhile = 3;
    EXPECT_FALSE(eventually([&] { return isPictured(); }, aWhile)) << "nobody wants previews";

    desk.done({"settings", "set", "showWindowPreviews", "true"});
    EXPECT_TRUE(eventually([&] { return isPictured(); }));
    Picture::take(desk.connection())
        .save(std::filesystem::path(PICTURES_FOLDER) /
              (std::string("window-pictures-") + GetParam() + ".png"));
    desk.done({"rules", "set", "xterm", "--ignore"});
    EXPECT_TRUE(eventually([&] { return !isPictured(); }));
    EXPECT_FALSE(eventually([&] { return isPictured(); }, aWhile)) << "the application is left alone";
    desk.done({"rules", "remove", "xterm"});
    EXPECT_TRUE(eventually([&] { return isPictured(); }));

    // Closed, there is no connection that could capture anything.
    desk.done({"workbench", "scenes"});
    user.await("Save this desk as a scene");
    user.press({"ctrl+w"});
    EXPECT_TRUE(eventually([&] { return clientCount(desk.connection()) == alone; }));
}

} // namespace
} // namespace vantrel::live
