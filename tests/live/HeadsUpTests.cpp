// The heads-up display as a user meets it, with and without a compositor.
#include "tests/live/ProgramRun.h"
#include "tests/live/desk/Picture.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

class HeadsUpUnder : public testing::TestWithParam<const char*> {
protected:
    // Its title is what it says, with the program's name behind it.
    std::optional<SeenWindow> sign(const std::string& text) {
        const auto overlays = seenOverlays(desk.connection());
        const auto found = std::ranges::find_if(
            overlays, [&](const SeenWindow& each) { return each.title.starts_with(text); });
        return found == overlays.end() ? std::nullopt : std::optional(*found);
    }

    // Saves the layout and returns the sign that says so. On a busy machine one may be gone unseen.
    std::optional<SeenWindow> signOfSave() {
        std::optional<SeenWindow> shown;
        std::ignore = waitUntil([&] {
            EXPECT_EQ(vantrelctl(desk, {"save"}).code, 0);
            shown = sign("Layout saved · 1 window");
            return shown.has_value();
        });
        return shown;
    }

    xcb_window_t focus() {
        xcb_connection_t* const xcb = desk.connection().xcb();
        const Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
        return reply ? reply->focus : xcb_window_t{};
    }

    static constexpr Rect right{{1280, 0}, {1280, 800}};
    PrivateDesk desk{{MonitorPlace{0, 0, 1280, 800}, MonitorPlace{1280, 0, 1280, 800}}, GetParam()};
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, HeadsUpUnder,
                         testing::Values("openbox", "xfwm4", "xfwm4 with its compositor"),
                         [](const testing::TestParamInfo<const char*>& manager) {
                             std::string name = manager.param;
                             std::ranges::replace(name, ' ', '_');
                             return name;
                         });

TEST_P(HeadsUpUnder, TheSignIsShownWhereThePointerIsTakesNoFocusAndGoes) {
    const auto terminal = desk.open({"xterm", "-bg", "white", "-T", "notes"});
    desk.place(terminal.client, right);
    const auto run = startVantrel(desk);
    ASSERT_EQ(desk.run({"xdotool", "mousemove", "1900", "300", "windowfocus", "--sync",
                        std::to_string(terminal.client)})
                  .exitCode,
              0);
    const auto focused = focus();
    const auto shown = signOfSave();
    ASSERT_TRUE(shown);
    EXPECT_NEAR(shown->frame.center().x, right.center().x, 2);
    EXPECT_GT(shown->frame.minY(), right.height() / 2);
    EXPECT_LT(shown->frame.maxY(), right.maxY());
    EXPECT_EQ(focus(), focused);
    // Its corners are round: what is behind it shows there, also where nothing makes windows transparent.
    const auto file =
        std::filesystem::path(PICTURES_FOLDER) / ("heads-up-" + std::string(GetParam()) + ".png");
    EXPECT_TRUE(waitUntil([&] {
        if (!sign(shown->title)) {
            std::ignore = signOfSave();
        }
        const auto picture = Picture::take(desk.connection());
        picture.save(file);
        const auto left = static_cast<std::size_t>(shown->frame.minX());
        const auto top = static_cast<std::size_t>(shown->frame.minY());
        constexpr std::size_t inside = 20;
        constexpr Picture::Colour white{255, 255, 255};
        return picture.colourAt(left, top) == white && picture.colourAt(left + inside, top + inside)[0] < 128;
    }));
    EXPECT_TRUE(desk.connection().waitUntil([&] { return !sign(shown->title); }));

    ASSERT_EQ(vantrelctl(desk, {"settings", "set", "showHUD", "false"}).code, 0);
    ASSERT_EQ(vantrelctl(desk, {"save"}).code, 0);
    EXPECT_FALSE(sign(shown->title));
    ASSERT_EQ(vantrelctl(desk, {"settings", "set", "showHUD", "true"}).code, 0);
    EXPECT_TRUE(signOfSave());
}

} // namespace
} // namespace vantrel::live
