// Pictures of windows: of which they are taken, and how a drawing shows them.
#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/desk/PicturedWindows.h"
#include "tests/Vantrel/controller/Story.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

using Freshness = WindowPictures::Freshness;
using testing::IsEmpty;

class KnownPictures final : public WindowPictures {
public:
    void follow(const std::vector<WindowID>& windows, Freshness freshness) override {
        followed = windows;
        isLive = freshness == Freshness::live;
    }
    [[nodiscard]] QImage picture(WindowID window) const override {
        const auto found = pictures.find(window);
        return found == pictures.end() ? QImage() : found->second;
    }
    void give(WindowID window, const QColor& color) {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(color);
        pictures[window] = image;
        tellChanged();
    }

    std::vector<WindowID> followed;
    bool isLive = false;
    std::map<WindowID, QImage> pictures;
};

DeskWindow window(std::uint64_t id, const char* app, bool isOnScreen) {
    DeskWindow window{.id = WindowID{id}};
    window.bundleID = app;
    window.isOnScreen = isOnScreen;
    return window;
}

TEST(PicturedWindows, AreThoseOfAppsThatAreNotLeftAloneWhileTheyAreShown) {
    const std::vector live{window(3, "mail", true), window(1, "bank", true), window(2, "code", false)};
    PublishedState state;
    state.preferences["showWindowPreviews"] = true;
    state.rules = {{"bank", "Bank", AppRule::Ignore{}, {}}, {"mail", "Mail", AppRule::ForceDisplay{}, {}}};
    state.liveWindows = live;
    using Choice = PicturedWindows::Choice;
    EXPECT_EQ(PicturedWindows::of(state, {}), (Choice{{WindowID{2}, WindowID{3}}, Freshness::live}));
    // Afterwards, only what nobody could see.
    state.liveWindows.reset();
    EXPECT_EQ(PicturedWindows::of(state, live), (Choice{{WindowID{2}}, Freshness::kept}));
    state.rules.push_back({"code", "Code", AppRule::Ignore{}, {}});
    EXPECT_EQ(PicturedWindows::of(state, live), Choice{});
    state.rules.clear();
    state.liveWindows = live;
    state.preferences["showWindowPreviews"] = false;
    EXPECT_EQ(PicturedWindows::of(state, live), Choice{});
}

TEST(PicturedWindows, AreFollowedOnlyWhileASurfaceShowsThem) {
    simulated::Story story;
    story.start();
    story.openPrograms();
    KnownPictures pictures;
    {
        const PicturedWindows followed(*story.controller, pictures);
        auto shown = story.controller->watchLiveDesk();
        story.runFor(2);
        EXPECT_THAT(pictures.followed, IsEmpty());
        story.controller->defaults().set("showWindowPreviews", true);
        story.runFor(2);
        EXPECT_TRUE(pictures.isLive);
        EXPECT_EQ(pictures.followed.size(), story.published().liveWindows->size());
        shown.reset();
        story.runFor(2);
        EXPECT_FALSE(pictures.isLive);
        shown = story.controller->watchLiveDesk();
        story.runFor(2);
        EXPECT_TRUE(pictures.isLive);
    }
    EXPECT_FALSE(pictures.isLive);
    EXPECT_THAT(pictures.followed, IsEmpty());
}

TEST(PicturedWindows, AreDrawnBelowTheTitleWithTheNameLegible) {
    DisplayInfo display;
    display.uuid = display.name = "Display";
    display.frame = {{0, 0}, {1000, 600}};
    DeskPicture picture{.displays = {display}, .windows = {}};
    picture.windows.push_back(
        {.bundleID = "mail", .appName = "Mail", .title = "", .frame = {{0, 0}, {500, 600}}});
    picture.windows.push_back(
        {.bundleID = "code", .appName = "Code", .title = "", .frame = {{500, 0}, {500, 600}}});
    picture.windows[0].live = WindowID{7};
    picture.windows[1].live = WindowID{8};
    picture.windows[1].state = DeskPicture::Window::State::notRunning;
    KnownPictures pictures;
    ApplicationLooks looks(nullptr, &pictures);
    DeskView view(looks);
    view.resize(600, 380);
    view.show(picture);
    view.show();
    const auto at = [&](std::size_t index, double x, double y) {
        const QRect frame = view.frameOf(index);
        return view.grab().toImage().pixelColor(frame.left() + static_cast<int>(frame.width() * x),
                                                frame.top() + static_cast<int>(frame.height() * y));
    };
    const QColor strip = at(0, 0.5, 0.01);
    pictures.give(WindowID{7}, Qt::red);
    pictures.give(WindowID{8}, Qt::red);
    EXPECT_EQ(at(0, 0.1, 0.9), QColor(Qt::red));
    EXPECT_EQ(at(0, 0.5, 0.01), strip);
    EXPECT_NE(at(1, 0.1, 0.9), QColor(Qt::red));
    // The plate around the icon.
    const QRect frame = view.frameOf(0);
    const QImage painted = view.grab().toImage();
    int pale = 0;
    for (int x = frame.left(); x < frame.right(); ++x) {
        pale += painted.pixelColor(x, frame.center().y()) != QColor(Qt::red) ? 1 : 0;
    }
    EXPECT_GT(pale, 40);
}

} // namespace

} // namespace vantrel
