// The status item in a menu bar that the system draws, and the counting of shown windows.
#include "Vantrel/interface/PhaseIcon.h"
#include "Vantrel/interface/ShownWindows.h"
#include "Vantrel/interface/StatusIcon.h"
#include "tests/Vantrel/controller/Story.h"

#include <QDialog>
#include <QMenu>

#include <gmock/gmock.h>
#include <set>

namespace vantrel {

namespace {

struct FakeMenuBarItem final : MenuBarItem {
    void setHandlers(Handlers handlers) override { given = std::move(handlers); }
    void setPicture(const std::vector<std::string>& resolutions) override { pictures.insert(resolutions); }
    void setDescription(const std::string& text) override { description = text; }
    std::optional<Rect> frame() override { return place; }

    Handlers given;
    std::set<std::vector<std::string>> pictures;
    std::string description;
    std::optional<Rect> place = Rect{{1200, 0}, {30, 24}};
};

TEST(MenuBar, ShowsThePhaseThePanelAndAMenuThatWorks) {
    simulated::Story story;
    story.start();
    story.openPrograms();
    FakeMenuBarItem item;
    std::vector<std::string> done;
    {
        StatusIcon icon(*story.controller, {.openPanel = [&] { done.emplace_back("panel"); },
                                            .quit = [&] { done.emplace_back("quit"); },
                                            .tell = [&](const auto& text) { done.push_back(text); }});
        icon.showInMenuBar(item);
        const std::string before = item.description;
        EXPECT_EQ(icon.place(), QRect(1200, 0, 30, 24));
        item.place.reset();
        EXPECT_EQ(icon.place(), QRect()) << "hidden by the notch";
        item.given.clicked();
        EXPECT_EQ(done, std::vector<std::string>{"panel"});

        const auto entries = item.given.menu();
        story.learn();
        EXPECT_NE(item.description, before);
        EXPECT_EQ(item.pictures.size(), 2U);
        // Chosen after the menu's content has changed.
        ASSERT_FALSE(entries.empty());
        const auto restore = std::ranges::find(entries, "Restore now", &MenuBarItem::Entry::title);
        ASSERT_NE(restore, entries.end());
        EXPECT_EQ(restore->shortcut, HotKeyDefaults::restore);
        EXPECT_THAT(entries.front().title, testing::Not(testing::HasSubstr("&")));
        entries.back().perform();
        EXPECT_EQ(done.back(), "quit");
        story.controller->setEnabled(false);
        item.given.menu().front().perform();
        story.runFor(1);
        EXPECT_NE(done.back(), "quit") << "says why nothing was restored";
    }
    EXPECT_FALSE(item.given.clicked);
}

TEST(MenuBar, EveryPhaseHasItsOwnMask) {
    const std::vector<Phase> phases{Phase{Phase::Empty{}},     Phase{Phase::Saved{4}},
                                    Phase{Phase::Restoring{}}, Phase{Phase::Restored{}},
                                    Phase{Phase::Off{}},       Phase{Phase::NeedsPermission{}}};
    std::set<std::string> masks;
    for (const Phase& phase : phases) {
        for (const std::string& png : PhaseIcon::masks(phase)) {
            masks.insert(png);
        }
    }
    EXPECT_EQ(masks.size(), 3 * phases.size());
}

TEST(MenuBar, OwnWindowsAreCountedUntilTheLastIsClosed) {
    int shown = 0;
    int closed = 0;
    const ShownWindows windows({.shown = [&] { ++shown; }, .lastClosed = [&] { ++closed; }});
    {
        QMenu menu;
        menu.show();
        QWidget overlay(nullptr, Qt::ToolTip);
        overlay.show();
    }
    EXPECT_EQ(shown, 0);
    QWidget first(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    auto second = std::make_unique<QDialog>();
    first.show();
    second->show();
    EXPECT_EQ(shown, 2);
    first.close();
    EXPECT_EQ(closed, 0);
    second.reset();
    EXPECT_EQ(closed, 1);
    first.show();
    first.close();
    EXPECT_EQ(shown, 3);
    EXPECT_EQ(closed, 2);
}

} // namespace

} // namespace vantrel
