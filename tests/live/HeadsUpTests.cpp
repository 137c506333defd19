// The heads-up display as a user sees it, without and with a compositor.
#include "tests/live/VantrelDesk.h"
#include "tools/desk/Picture.h"

#include <algorithm>

namespace vantrel::live {
namespace {

class HeadsUpUnder : public UnderWindowManager {
protected:
    // Its title is its text, followed by the program's name.
    std::optional<SeenWindow> sign() {
        const auto overlays = seenOverlays(desk.connection());
        const auto found = std::ranges::find_if(overlays, [](const SeenWindow& each) {
            return each.title.starts_with("Layout saved · 1 window");
        });
        return found == overlays.end() ? std::nullopt : std::optional(*found);
    }

    // Saves again when a busy machine shows and hides the sign before it was seen.
    std::optional<SeenWindow> signOfSave() {
        std::optional<SeenWindow> shown;
        EXPECT_TRUE(waitUntil([&] {
            desk.done({"save"});
            return (shown = sign()).has_value();
        }));
        return shown;
    }

    xcb_window_t focus() {
        xcb_connection_t* const xcb = desk.connection().xcb();
        const Reply<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
        return reply ? reply->focus : xcb_window_t{};
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, HeadsUpUnder,
                         testing::Values("openbox", "xfwm4 with its compositor"),
                         [](const testing::TestParamInfo<const char*>& manager) {
                             std::string name = manager.param;
                             std::ranges::replace(name, ' ', '_');
                             return name;
                         });

TEST_P(HeadsUpUnder, AppearsWhereThePointerIsTakesNoFocusAndDisappears) {
    const auto terminal = desk.open({"xterm", "-bg", "white", "-T", "notes"}).client;
    const Rect whole{{1280, 0}, {1600, 900}};
    desk.place(terminal, whole);
    const auto run = desk.startVantrel();
    const auto pointed =
        desk.run({"xdotool", "mousemove", "1900", "300", "windowfocus", "--sync", std::to_string(terminal)});
    ASSERT_EQ(pointed.code, 0) << pointed.output;
    const auto focused = focus();
    const auto shown = signOfSave();
    ASSERT_TRUE(shown);
    EXPECT_NEAR(shown->frame.center().x, whole.center().x, 2);
    EXPECT_GT(shown->frame.minY(), whole.height() / 2);
    EXPECT_LT(shown->frame.maxY(), whole.maxY());
    EXPECT_EQ(focus(), focused);
    // What is behind it shows at its round corners, also without a compositor.
    const auto file =
        std::filesystem::path(PICTURES_FOLDER) / ("heads-up-" + std::string(GetParam()) + ".png");
    EXPECT_TRUE(waitUntil([&] {
        if (!sign()) {
            signOfSave();
        }
        const auto picture = Picture::take(desk.connection());
        picture.save(file);
        const auto x = static_cast<std::size_t>(shown->frame.minX());
        const auto y = static_cast<std::size_t>(shown->frame.minY());
        constexpr std::size_t inside = 20;
        constexpr Picture::Colour white{255, 255, 255};
        return picture.colourAt(x, y) == white && picture.colourAt(x + inside, y + inside)[0] < 128;
    }));
    EXPECT_TRUE(eventually([&] { return !sign(); }));

    desk.done({"settings", "set", "showHUD", "false"});
    desk.done({"save"});
    EXPECT_FALSE(sign());
    desk.done({"settings", "set", "showHUD", "true"});
    EXPECT_TRUE(signOfSave());
}

} // namespace
} // namespace vantrel::live
