// The panel on a simulated desk: what it shows and what a click, a key or a typed name does.
#include "Vantrel/interface/panel/PanelPresenter.h"
#include "tests/Vantrel/controller/Story.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class PanelTest : public testing::Test {
protected:
    PanelTest() {
        story.start();
        story.openPrograms();
        story.learn();
        story.controller->defaults().set("showPanelWithoutTray", false);
        panel.emplace(*story.controller, PanelPresenter::Services{.keyCode = [](const QKeyEvent& event) {
            return event.key() == Qt::Key_2 ? std::optional<std::int64_t>(19) : std::nullopt;
        }});
    }
    ~PanelTest() override { panel.reset(); }

    void open() {
        panel->open();
        settle();
    }
    void settle(double seconds = 3) {
        story.runFor(seconds);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    PanelView& view() { return panel->window()->view(); }
    const PanelContent& content() { return view().content(); }

    // By its accessible name; null when it is not shown.
    template <typename Widget>
    Widget* find(const char* name) {
        for (auto* const widget : view().template findChildren<Widget*>()) {
            if (widget->accessibleName() == QString::fromUtf8(name) && widget->isVisible()) {
                return widget;
            }
        }
        return nullptr;
    }
    void click(const char* name) {
        auto* const button = find<QAbstractButton>(name);
        ASSERT_NE(button, nullptr) << name;
        button->click();
        settle();
    }
    void press(const char* text) {
        for (auto* const button : view().findChildren<QPushButton*>()) {
            if (button->text() == text && button->isVisible()) {
                button->click();
                settle();
                return;
            }
        }
        ADD_FAILURE() << "no button " << text;
    }
    bool says(const char* text) {
        const auto labels = view().findChildren<QLabel*>();
        return std::ranges::any_of(
            labels, [&](const QLabel* label) { return label->isVisible() && label->text() == text; });
    }
    void saveScene(const char* name) {
        auto* const field = find<QLineEdit>("Save this desk as a scene");
        field->clear();
        QTest::keyClicks(field, name);
        QTest::keyClick(field, Qt::Key_Return);
        settle();
    }
    std::vector<std::string> sceneNames() {
        std::vector<std::string> names;
        for (const auto& row : content().scenes) {
            names.push_back(row.name);
        }
        return names;
    }

    simulated::Story story{"laptop-and-monitor"};
    std::optional<PanelPresenter> panel;
};

TEST_F(PanelTest, IsThereOnlyWhileItIsOpenAndCapturesOnlyThen) {
    const auto captures = [this] { return story.desk.captures().size(); };
    const auto before = captures();
    settle(4);
    EXPECT_EQ(captures(), before);
    open();
    EXPECT_TRUE(story.published().liveWindows.has_value());
    EXPECT_GT(captures(), before);
    EXPECT_EQ(view().drawing().picture().windows.size(), 4U);
    QTest::keyClick(panel->window(), Qt::Key_Escape);
    EXPECT_FALSE(panel->isOpen());
    settle();
    EXPECT_FALSE(story.published().liveWindows.has_value());
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(PanelTest, ShowsWhatHasMovedAndPutsItBack) {
    open();
    EXPECT_THAT(content().messages, testing::IsEmpty());
    const Rect home = story.frame(story.mail);
    story.move(story.mail, {{300, 200}, home.size});
    settle();
    ASSERT_EQ(content().messages.size(), 1U);
    EXPECT_EQ(content().messages[0].title, "1 window has moved");
    EXPECT_EQ(view().drawing().picture().movedCount(), 1U);
    press("Put back");
    settle();
    EXPECT_EQ(story.frame(story.mail), home);
    EXPECT_THAT(content().messages, testing::IsEmpty());
    ASSERT_TRUE(content().lastResult.has_value());
    EXPECT_THAT(content().lastResult->text, HasSubstr("back in place"));

    click("Undo");
    EXPECT_EQ(story.frame(story.mail).origin, (Point{300, 200}));
}

TEST_F(PanelTest, ASceneIsSavedRenamedGivenAShortcutDeletedAndBroughtBack) {
    open();
    saveScene("Write");
    saveScene("Code");
    EXPECT_THAT(sceneNames(), ElementsAre("Write", "Code"));

    auto* const field = find<QLineEdit>("Save this desk as a scene");
    QTest::keyClicks(field, "write");
    settle();
    EXPECT_TRUE(says("That name is used by another scene."));
    QTest::keyClick(field, Qt::Key_Return);
    settle();
    EXPECT_EQ(content().scenes.size(), 2U);

    SceneRowView& row = *view().sceneRows()[0];
    row.startRenaming();
    auto* const name = row.findChild<QLineEdit*>();
    name->clear();
    QTest::keyClicks(name, "code");
    EXPECT_TRUE(says("That name is used by another scene."));
    name->setText("Letters");
    QTest::keyClick(name, Qt::Key_Return);
    settle();
    EXPECT_THAT(sceneNames(), ElementsAre("Letters", "Code"));

    row.recorder().startRecording();
    QTest::keyClick(&row.recorder(), Qt::Key_2, Qt::ControlModifier | Qt::AltModifier);
    settle();
    EXPECT_FALSE(row.recorder().isRecording());
    EXPECT_EQ(content().scenes[0].shortcut, "Control+Alt+2");
    SceneRowView& other = *view().sceneRows()[1];
    other.recorder().startRecording();
    QTest::keyClick(&other.recorder(), Qt::Key_2, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_TRUE(other.recorder().isRecording());
    EXPECT_TRUE(std::ranges::any_of(other.findChildren<QLabel*>(), [](const QLabel* label) {
        return label->text() == "Already used by Letters.";
    }));
    QTest::keyClick(&other.recorder(), Qt::Key_Escape);
    EXPECT_FALSE(other.recorder().isRecording());
    EXPECT_TRUE(panel->isOpen());

    const Scene before = story.published().scenes[0];
    other.setHighlighted(true);
    QTimer::singleShot(0, [] {
        auto* const menu = QApplication::activePopupWidget();
        ASSERT_NE(menu, nullptr);
        QTest::keyClick(menu, Qt::Key_D);
    });
    const Scene deleted = story.published().scenes[1];
    other.findChildren<SymbolButton*>().back()->click();
    settle();
    EXPECT_THAT(sceneNames(), ElementsAre("Letters"));
    press("Undo");
    EXPECT_THAT(sceneNames(), ElementsAre("Letters", "Code"));
    EXPECT_EQ(story.published().scenes[1], deleted);
    EXPECT_EQ(story.published().scenes[0], before);
}

TEST_F(PanelTest, TheSwitchTheNameAndTheLayoutsActAtOnce) {
    open();
    click("Learn and restore automatically");
    EXPECT_FALSE(story.published().enabled);
    EXPECT_FALSE(content().restore.isEnabled);
    EXPECT_EQ(content().restore.reason, "Vantrel is switched off.");
    click("Learn and restore automatically");
    EXPECT_TRUE(content().restore.isEnabled);

    auto* const name = find<QLineEdit>("Name of this desk");
    name->setFocus();
    name->setText("Office");
    QTest::keyClick(name, Qt::Key_Return);
    settle();
    EXPECT_EQ(story.published().deskName(), "Office");

    click("Save the desk as another layout");
    auto* const layout = find<QLineEdit>("Name of the new layout");
    ASSERT_NE(layout, nullptr);
    layout->setText(QString(61, 'x'));
    QTest::keyClick(layout, Qt::Key_Return);
    EXPECT_TRUE(says("The name must have between 1 and 60 characters."));
    layout->clear();
    QTest::keyClicks(layout, "Evening");
    QTest::keyClick(layout, Qt::Key_Return);
    settle();
    EXPECT_EQ(story.published().activeLayoutName, "Evening");
    auto* const box = find<QComboBox>("Layout");
    QTest::keyClick(box, Qt::Key_Home);
    settle();
    EXPECT_EQ(story.published().activeLayoutName, Layout::defaultName);
    click("Keep this layout as it is");
    EXPECT_TRUE(story.published().activePinned);
}

TEST_F(PanelTest, TheQuickSwitchersTipRecordsItsShortcutAndIsDismissedForGood) {
    open();
    EXPECT_TRUE(content().messages.empty());
    for (const char* const name : {"Letters", "Code"}) {
        saveScene(name);
    }
    ASSERT_EQ(content().messages.size(), 1U);
    press("Record shortcut");
    auto* const recorder = find<QAbstractButton>("Shortcut for “Quick switcher”");
    ASSERT_NE(recorder, nullptr);
    QTest::keyClick(recorder, Qt::Key_2, Qt::ControlModifier | Qt::AltModifier);
    settle();
    EXPECT_TRUE(Settings(story.controller->defaults()).quickSwitcherHotkey());
    EXPECT_TRUE(content().messages.empty());

    ASSERT_TRUE(story.controller->setHotkey({HotKeySurface::Kind::quickSwitcher, {}}, std::nullopt));
    settle();
    click("Dismiss");
    EXPECT_TRUE(content().messages.empty());
    EXPECT_TRUE(Settings(story.controller->defaults()).quickSwitcherHintDismissed());
}

TEST_F(PanelTest, ASecondStartInAnotherSessionIsSaidAgainAfterADismissal) {
    open();
    for (int time = 0; time < 2; ++time) {
        panel->addSessionNote(
            {"Started a second time", "elsewhere", PanelContent::Message::Kind::sharedFolder});
        ASSERT_EQ(content().messages.size(), 1U);
        click("Dismiss");
        EXPECT_TRUE(content().messages.empty());
    }
}

TEST_F(PanelTest, ALayoutIsRenamedDeletedAndBroughtBack) {
    open();
    story.controller->layouts().saveLayoutAs("Evening", [](const auto&) {});
    settle();
    const auto choose = [&](Qt::Key letter) {
        QTimer::singleShot(0, [letter] { QTest::keyClick(QApplication::activePopupWidget(), letter); });
        click("Change this layout");
    };
    choose(Qt::Key_R);
    auto* const name = find<QLineEdit>("Name of this layout");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->text(), "Evening");
    name->setText(Layout::defaultName);
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_TRUE(says(LayoutChange{LayoutChange::Kind::nameTaken}.text().c_str()));
    name->setText("Night");
    QTest::keyClick(name, Qt::Key_Return);
    settle();
    EXPECT_FALSE(name->isVisible());
    EXPECT_EQ(story.published().activeLayoutName, "Night");

    choose(Qt::Key_D);
    EXPECT_EQ(story.published().activeLayoutName, Layout::defaultName);
    EXPECT_TRUE(says("“Night” was deleted."));
    click("Undo the deletion");
    settle();
    EXPECT_EQ(story.published().activeLayoutName, "Night");
}

TEST_F(PanelTest, AMistakeInTheSettingsFileIsShownWithTheFileUntilItIsRight) {
    std::vector<std::filesystem::path> opened;
    panel.emplace(*story.controller, PanelPresenter::Services{.openFile = [&](const auto& file) {
        opened.push_back(file);
        return true;
    }});
    open();
    const SettingsLine wrong{1, "showHud", "false", false};
    const SettingsLine right{2, "settleDelay", "1.5", 1.5};
    story.defaults.edit({"/home/me/settings.conf", {wrong, right}});
    settle();
    ASSERT_EQ(content().messages.size(), 1U);
    EXPECT_EQ(content().messages[0].detail,
              "Line 1 of settings.conf: There is no setting \"showHud\". Did you mean \"showHUD\"?");
    press("Open file");
    EXPECT_THAT(opened, ElementsAre("/home/me/settings.conf"));
    click("Dismiss");
    EXPECT_THAT(content().messages, testing::IsEmpty());
    for (const auto& lines : {std::vector{right}, std::vector{wrong, wrong}}) {
        story.defaults.edit({"/home/me/settings.conf", lines});
        settle();
    }
    ASSERT_EQ(content().messages.size(), 1U) << "a later mistake is news";
    EXPECT_THAT(content().messages[0].detail, HasSubstr(" 1 more line is ignored."));
}

TEST_F(PanelTest, TheIntroductionIsShownOnceKeepsTheAnswersAndLeadsToThePanel) {
    panel->welcome();
    OnboardingWindow* introduction = panel->introduction();
    ASSERT_NE(introduction, nullptr);
    panel->open();
    EXPECT_FALSE(panel->isOpen());
    introduction->close();
    settle();
    EXPECT_TRUE(panel->isOpen());
    panel->welcome();
    EXPECT_EQ(panel->introduction(), nullptr);

    click("Introduction");
    introduction = panel->introduction();
    ASSERT_NE(introduction, nullptr);
    introduction->showPage(2);
    for (auto* const button : introduction->findChildren<QAbstractButton*>()) {
        if (button->text() == "Now and then" || button->accessibleName() == "Start with the session") {
            button->click();
        }
    }
    introduction->close();
    settle();
    const Settings settings(story.controller->defaults());
    EXPECT_EQ(settings.dockFrequency(), "nowAndThen");
    EXPECT_EQ(settings.settleDelay(), 1.5);
    EXPECT_FALSE(settings.quietNudgesEnabled());
    // The answer suggests it; the click took that back.
    EXPECT_FALSE(settings.launchAtLogin());
}

TEST_F(PanelTest, WithoutATrayItOpensAtStartUntilTheUserDeclines) {
    story.controller->defaults().set("showPanelWithoutTray", true);
    panel->openWithoutTray();
    settle();
    ASSERT_TRUE(panel->isOpen());
    EXPECT_EQ(panel->window()->kind(), PanelWindow::Kind::window);
    EXPECT_EQ(content().messages.at(0).kind, PanelContent::Message::Kind::tray);
    press("Not at start");
    EXPECT_THAT(content().messages, testing::IsEmpty());
    panel->close();
    panel->openWithoutTray();
    EXPECT_FALSE(panel->isOpen());
}

TEST_F(PanelTest, EveryControlHasANameAndIsReachedByTab) {
    open();
    saveScene("Write");
    std::set<QWidget*> reached;
    QWidget* widget = &view();
    do {
        widget = widget->nextInFocusChain();
        if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0) {
            reached.insert(widget);
        }
    } while (widget != &view());
    for (auto* const control : view().findChildren<QWidget*>()) {
        const bool isControl = qobject_cast<QAbstractButton*>(control) != nullptr ||
                               qobject_cast<QLineEdit*>(control) != nullptr ||
                               qobject_cast<QComboBox*>(control) != nullptr;
        // The buttons inside a field are reached by its own keys.
        if (control->isVisible() && isControl &&
            qobject_cast<QLineEdit*>(control->parentWidget()) == nullptr) {
            const auto* const button = qobject_cast<QAbstractButton*>(control);
            const bool hasName =
                !control->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
            EXPECT_TRUE(hasName) << control->metaObject()->className();
            EXPECT_TRUE(reached.contains(control)) << control->accessibleName().toStdString();
        }
    }
    EXPECT_TRUE(reached.contains(&view().drawing()));
}

TEST(PanelContent, SaysWhatIsMissingAndRefusesOnlyWhatMoves) {
    PublishedState state;
    state.configID = "desk";
    state.phase = {Phase::Saved{3}};
    state.hasPermission = true;
    Layout layout;
    layout.layoutName = state.activeLayoutName;
    state.currentLayouts = {layout};
    PanelContent::Context context{.now = {}};
    context.permissionTitle = "No window manager";
    const auto kinds = [&] {
        std::vector<PanelContent::Message::Kind> found;
        for (const auto& message : PanelContent::of(state, context).messages) {
            found.push_back(message.kind);
        }
        return found;
    };
    using Kind = PanelContent::Message::Kind;
    EXPECT_THAT(kinds(), testing::IsEmpty());

    state.entitlement.kind = Entitlement::Kind::trial;
    state.entitlement.trialDaysLeft = 8;
    EXPECT_THAT(kinds(), testing::IsEmpty());
    state.entitlement.trialDaysLeft = 5;
    EXPECT_EQ(PanelContent::of(state, context).messages.at(0).title, "5 days left of your trial");
    context.dismissed = {Kind::license};
    EXPECT_THAT(kinds(), testing::IsEmpty());

    // Not dismissible any more; saving and stashing stay.
    state.entitlement.kind = Entitlement::Kind::trialOver;
    state.latestAvailable = "2.0";
    context.crashReports = 1;
    EXPECT_THAT(kinds(), ElementsAre(Kind::license, Kind::crashReports, Kind::update));
    auto content = PanelContent::of(state, context);
    EXPECT_FALSE(content.restore.isEnabled);
    EXPECT_TRUE(content.save.isEnabled);
    EXPECT_TRUE(content.stash.isEnabled);

    state.hasPermission = false;
    EXPECT_EQ(kinds().front(), Kind::permission);
    const auto deed = [&] { return PanelContent::of(state, context).messages.front().actions.front().deed; };
    EXPECT_EQ(deed(), PanelContent::Message::Deed::checkAgain);
    context.hasPermissionSettings = true;
    EXPECT_EQ(deed(), PanelContent::Message::Deed::openPermissionSettings);
    EXPECT_FALSE(PanelContent::of(state, context).save.isEnabled);

    state.currentLayouts.clear();
    content = PanelContent::of(state, context);
    EXPECT_TRUE(content.isEmpty);
    EXPECT_EQ(content.layouts, std::nullopt);
    EXPECT_EQ(content.save.text, "Remember it now");
}

} // namespace

} // namespace vantrel
