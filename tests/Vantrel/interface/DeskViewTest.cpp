#include "Vantrel/interface/desk/DeskView.h"
#include "Vantrel/interface/desk/PictureIcons.h"
#include "Vantrel/interface/symbols/Symbols.h"

#include <QAccessible>
#include <QBuffer>
#include <QPainter>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

// Left a mail window with a note in front of it, right a terminal; a hidden window below the mail.
DeskPicture picture() {
    DisplayInfo display;
    display.uuid = display.name = "Studio Display";
    display.frame = {{0, 0}, {2000, 1000}};
    DeskPicture picture{.displays = {display}, .windows = {}};
    const auto add = [&](const char* app, const Rect& frame) {
        picture.windows.push_back({.bundleID = app, .appName = app, .title = "", .frame = frame});
    };
    add("Note", {{100, 500}, {500, 400}});
    add("Mail", {{0, 0}, {1000, 1000}});
    add("Terminal", {{1000, 0}, {1000, 1000}});
    add("Chat", {{0, 0}, {900, 900}});
    return picture;
}

class DeskViewTest : public testing::Test {
protected:
    DeskViewTest() {
        view.resize(600, 340);
        view.show(picture());
        view.show();
    }

    [[nodiscard]] QImage painted() { return view.grab().toImage(); }
    [[nodiscard]] QPoint middle(std::size_t window) { return view.frameOf(window).center(); }

    ApplicationLooks looks{nullptr};
    DeskView view{looks};
};

TEST_F(DeskViewTest, AWindowBelowOthersComesToTheFrontWhileThePointerIsOnIt) {
    const QImage calm = painted();
    const QPoint covered = middle(0);
    QTest::mouseMove(&view, view.frameOf(1).topRight() + QPoint(-8, 30));
    const QImage lifted = painted();
    EXPECT_NE(lifted.pixelColor(covered), calm.pixelColor(covered));
    QTest::mouseMove(&view, view.frameOf(2).center());
    EXPECT_EQ(painted().pixelColor(covered), calm.pixelColor(covered));
}

TEST_F(DeskViewTest, ArrowKeysWalkTheWindowsInReadingOrderAndReadThemOut) {
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
    view.setFocus(Qt::TabFocusReason);
    auto* const accessible = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->text(QAccessible::Name), "1 display, 4 windows");
    ASSERT_EQ(accessible->childCount(), 4);
    std::vector<std::string> read;
    for (int i = 0; i < 5; ++i) {
        auto* const focused = accessible->focusChild();
        ASSERT_NE(focused, nullptr);
        EXPECT_TRUE(focused->state().focused);
        EXPECT_TRUE(view.rect().contains(focused->rect().translated(-view.mapToGlobal(QPoint())).center()));
        read.push_back(focused->text(QAccessible::Name).toStdString());
        QTest::keyClick(&view, i % 2 == 0 ? Qt::Key_Right : Qt::Key_Down);
    }
    EXPECT_THAT(read, testing::ElementsAre(
                          "Mail, left half of Studio Display", "Chat, left side of Studio Display",
                          "Terminal, right half of Studio Display", "Note, lower left of Studio Display",
                          "Note, lower left of Studio Display"));
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(view.selectedWindow(), 1U);
    // The hidden one is shown while it is selected.
    const QImage before = painted();
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_NE(painted(), before);
}

TEST_F(DeskViewTest, FollowsThePaletteAndTheDisplays) {
    const QImage light = painted();
    QPalette dark;
    dark.setColor(QPalette::Window, QColor("#25282b"));
    dark.setColor(QPalette::Base, QColor("#1c1e21"));
    dark.setColor(QPalette::WindowText, QColor("#eceef1"));
    view.setPalette(dark);
    EXPECT_LT(painted().pixelColor(middle(2) / 2 + QPoint(2, 2)).lightness(), 128);
    const int wide = view.heightForWidth(600);
    view.show(DeskPicture{});
    EXPECT_NE(view.heightForWidth(600), wide);
    EXPECT_FALSE(painted().isNull());
    QTest::keyClick(&view, Qt::Key_Right);
    EXPECT_EQ(view.selectedWindow(), std::nullopt);
}

TEST(DeskColors, TextIsLegibleInEveryPalette) {
    for (const auto& [window, text, highlight] :
         {std::tuple("#f3f4f5", "#1f2429", "#2a67d6"), std::tuple("#25282b", "#eceef1", "#356bd2"),
          std::tuple("#ffffff", "#555555", "#3daee9"), std::tuple("#000000", "#ffffff", "#3584e4")}) {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(window));
        palette.setColor(QPalette::Base, QColor(window));
        palette.setColor(QPalette::WindowText, QColor(text));
        palette.setColor(QPalette::Highlight, QColor(highlight));
        const auto colors = DeskColors::of(palette);
        for (const QColor& color :
             {colors.secondText, colors.accent, colors.warning, colors.error, colors.good}) {
            EXPECT_GE(DeskColors::contrast(color, colors.window), 4.5)
                << window << " " << color.name().toStdString();
        }
        for (int hue = 0; hue < 360; hue += 15) {
            EXPECT_GE(
                DeskColors::contrast(colors.text, colors.body(colors.strip(QColor::fromHsv(hue, 255, 255)))),
                4.5);
        }
    }
}

TEST(Symbols, EverySystemSymbolHasADrawing) {
    for (const char* name : {"chevron.left.forwardslash.chevron.right", "brain.head.profile", "paintbrush",
                             "magnifyingglass", "bubble.left", "play.rectangle", "pencil", "envelope",
                             "music.note", "dot.radiowaves.left.and.right", "video", "gamecontroller",
                             "briefcase", "house", "rectangle.3.group", "not a symbol"}) {
        EXPECT_TRUE(Symbols::exists(Symbols::ofSystemSymbol(name))) << name;
        const QImage image =
            Symbols::icon(Symbols::ofSystemSymbol(name)).pixmap(QSize(32, 32), 1.0).toImage();
        int drawn = 0;
        for (int x = 0; x < 32; ++x) {
            for (int y = 0; y < 32; ++y) {
                drawn += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
            }
        }
        EXPECT_GT(drawn, 30) << name;
    }
}

struct FakeSymbols final : SystemSymbols {
    std::optional<Picture> picture(const std::string& name) override {
        asked.push_back(name);
        if (name != "paintbrush") {
            return std::nullopt;
        }
        QImage bar(40, 20, QImage::Format_ARGB32);
        bar.fill(Qt::black);
        QByteArray png;
        QBuffer buffer(&png);
        bar.save(&buffer, "PNG");
        return Picture{png.toStdString(), {2, 1}};
    }

    std::vector<std::string> asked;
};

TEST(Symbols, OfTheSystemAreColouredAndOthersDrawn) {
    const auto painted = [](const char* name) {
        QImage image(32, 32, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        Symbols::paint(painter, name, QRectF(0, 0, 32, 32), Qt::red);
        return image;
    };
    FakeSymbols system;
    const QImage drawn = painted("gear");
    Symbols::useSystem(&system);
    const QImage brush = painted("brush");
    EXPECT_EQ(brush, painted("brush"));
    EXPECT_EQ(painted("gear"), drawn);
    Symbols::useSystem(nullptr);
    // As wide as the square, half as high, in its middle.
    EXPECT_EQ(brush.pixelColor(1, 16), QColor(Qt::red));
    EXPECT_EQ(brush.pixelColor(30, 10), QColor(Qt::red));
    EXPECT_EQ(brush.pixelColor(16, 5).alpha(), 0);
    EXPECT_EQ(system.asked, (std::vector<std::string>{"paintbrush", "gearshape"}));
    EXPECT_NE(painted("brush"), brush);
}

TEST(PictureIcons, HaveEveryReadableSize) {
    QImage square(32, 32, QImage::Format_ARGB32);
    square.fill(Qt::blue);
    QByteArray png;
    QBuffer buffer(&png);
    square.save(&buffer, "PNG");
    PictureIcons icons([&](const std::string& bundleID) {
        return bundleID == "org.example.Mail" ? std::vector{std::string("broken"), png.toStdString()}
                                              : std::vector<std::string>();
    });
    EXPECT_EQ(icons.icon("org.example.Mail").availableSizes(), QList<QSize>{QSize(32, 32)});
    EXPECT_TRUE(icons.icon("org.example.Files").isNull());
}

} // namespace

} // namespace vantrel
