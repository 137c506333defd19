// The quick switcher on a simulated desk: what keys, pointer and releases do.
#include "Vantrel/interface/switcher/QuickSwitcher.h"
#include "tests/Vantrel/controller/Story.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

using Key = HeldKeyboard::Key;
using testing::HasSubstr;

class FakeKeyboard final : public HeldKeyboard {
public:
    struct HeldHere final : Hold {
        explicit HeldHere(bool& flag) : isHeld(flag) { isHeld = true; }
        ~HeldHere() override { isHeld = false; }
        HeldHere(const HeldHere&) = delete;
        HeldHere& operator=(const HeldHere&) = delete;

        bool& isHeld;
    };

    std::unique_ptr<Hold> hold(HotKeyCombo /*combo*/, Handlers given) override {
        handlers = std::move(given);
        return isRefused ? nullptr : std::make_unique<HeldHere>(isHeld);
    }

    Handlers handlers;
    bool isRefused = false;
    bool isHeld = false;
};

class QuickSwitcherTest : public testing::Test {
protected:
    QuickSwitcherTest() {
        story.start();
        story.openPrograms();
        story.learn();
        story.defaults.set("quickSwitcherKeyCode", std::int64_t{101});
        story.defaults.set("quickSwitcherModifiers", std::int64_t{256});
        story.runFor(1);
        switcher.emplace(*story.controller, QuickSwitcher::Services{.keyboard = &keyboard});
    }
    ~QuickSwitcherTest() override { switcher.reset(); }

    void settle(double seconds = 5) {
        story.runFor(seconds);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    void saveScene(const char* name) {
        story.controller->scenes().saveCurrentAsScene(name, [](const auto&) {});
        settle();
    }
    std::string selected() {
        const Scene* const scene = switcher->strip().selectedScene();
        return scene == nullptr ? "" : scene->name;
    }
    std::string applied() {
        const Scene* const scene = story.published().lastAppliedScene();
        return scene == nullptr ? "" : scene->name;
    }

    simulated::Story story{"laptop-and-monitor"};
    FakeKeyboard keyboard;
    std::optional<QuickSwitcher> switcher;
};

TEST_F(QuickSwitcherTest, AppliesOnReleaseGoesBackAndForthAndLeavesOnEscape) {
    for (const char* const name : {"Write", "Code", "Meeting"}) {
        saveScene(name);
    }
    switcher->pressed();
    ASSERT_TRUE(keyboard.isHeld);
    // None of them has been applied yet.
    EXPECT_EQ(selected(), "Write");
    keyboard.handlers.pressed({.kind = Key::Kind::next});
    EXPECT_EQ(switcher->view()->accessibleName(), "Code");
    keyboard.handlers.released();
    EXPECT_FALSE(keyboard.isHeld);
    EXPECT_EQ(switcher->view(), nullptr);
    settle();
    EXPECT_EQ(applied(), "Code");

    for (const char* const expected : {"Write", "Code"}) {
        switcher->pressed();
        keyboard.handlers.released();
        settle();
        EXPECT_EQ(applied(), expected);
    }
    switcher->pressed();
    keyboard.handlers.pressed({.text = "w"});
    EXPECT_EQ(selected(), "Write");
    keyboard.handlers.pressed({.kind = Key::Kind::escape});
    settle();
    EXPECT_EQ(switcher->view(), nullptr);
    EXPECT_EQ(applied(), "Code");

    // A scene deleted meanwhile is not applied.
    switcher->pressed();
    keyboard.handlers.pressed({.text = "w"});
    ASSERT_TRUE(story.controller->scenes().deleteScene(switcher->strip().selectedScene()->id));
    keyboard.handlers.released();
    settle();
    EXPECT_EQ(applied(), "Code");
}

TEST_F(QuickSwitcherTest, TakesClicksAndKeysItselfWhenTheKeyboardIsRefused) {
    saveScene("Write");
    saveScene("Code");
    keyboard.isRefused = true;
    switcher->pressed();
    ASSERT_NE(switcher->view(), nullptr);
    EXPECT_THAT(switcher->view()->hint().toStdString(), HasSubstr("Return to apply Write"));
    QTest::keyClick(switcher->view(), Qt::Key_Tab);
    EXPECT_EQ(selected(), "Code");
    QTest::keyClick(switcher->view(), Qt::Key_W);
    QTest::keyClick(switcher->view(), Qt::Key_Return);
    settle();
    EXPECT_EQ(applied(), "Write");

    switcher->pressed();
    QTest::mouseClick(switcher->view(), Qt::LeftButton, {}, {60, 60});
    EXPECT_EQ(switcher->view(), nullptr);
}

TEST_F(QuickSwitcherTest, SaysWhatToDoWithoutScenes) {
    switcher->pressed();
    EXPECT_THAT(switcher->view()->hint().toStdString(), HasSubstr("save them as a scene"));
    keyboard.handlers.released();
    EXPECT_FALSE(keyboard.isHeld);
    EXPECT_NE(switcher->view(), nullptr);
    // It closes after there was time to read.
    EXPECT_TRUE(QTest::qWaitFor([&] { return switcher->view() == nullptr; }, 60000));
}

} // namespace

} // namespace vantrel
