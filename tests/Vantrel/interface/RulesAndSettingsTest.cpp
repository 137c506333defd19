// The workbench's tabs Rules and Settings on a simulated desk: what a click, a key or a typed word changes,
// and that changes made elsewhere are shown.
#include "Vantrel/interface/workbench/Workbench.h"
#include "Vantrel/interface/workbench/rules/RulesPage.h"
#include "Vantrel/interface/workbench/settings/SettingsPage.h"
#include "Vantrel/interface/workbench/settings/ShortcutsView.h"
#include "Vantrel/interface/workbench/settings/ToggleRows.h"
#include "Vantrel/interface/workbench/settings/TriggersView.h"
#include "tests/Vantrel/controller/Story.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

class RulesAndSettings : public testing::Test {
protected:
    RulesAndSettings() {
        story.start();
        story.openPrograms();
        story.learn();
        services.settings.files = &disk;
        services.settings.supportDirectory = "/support/Vantrel";
        services.settings.logFile = "/support/Vantrel/app.log";
        services.settings.keyCode = [](const QKeyEvent& event) {
            return event.key() == Qt::Key_2 ? std::optional<std::int64_t>(19) : std::nullopt;
        };
        bench.emplace(*story.controller, services);
    }
    ~RulesAndSettings() override { bench.reset(); }

    void open(WorkbenchTab tab) {
        ASSERT_TRUE(bench->open(tab));
        settle();
    }
    void settle(double seconds = 2) {
        story.runFor(seconds);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    RulesPage& rules() { return dynamic_cast<RulesPage&>(*bench->window()->page()); }
    // Null when it is not shown.
    RuleRowView* rule(const char* app) {
        for (RuleRowView* const row : rules().rows()) {
            if (row->row().appName == app) {
                return row;
            }
        }
        return nullptr;
    }
    template <typename View>
    View& section(SettingsSection section) {
        auto& page = dynamic_cast<SettingsPage&>(*bench->window()->page());
        page.choose(section);
        settle();
        if (auto* const view = dynamic_cast<View*>(page.view())) {
            return *view;
        }
        return *page.view()->findChild<View*>();
    }

    // What the user reads and deletes there; the story's own allows the main thread no access.
    simulated::MemoryFileSystem disk;
    simulated::Story story{"laptop-and-monitor"};
    Workbench::Services services;
    std::optional<Workbench> bench;
};

TEST_F(RulesAndSettings, ARuleIsMadeByClickingADrawnDisplayAndFollowsOtherClients) {
    open(WorkbenchTab::rules);
    ASSERT_NE(rule("Mail"), nullptr);
    const DisplayInfo monitor = story.published().displays.at(1);
    QTest::mouseClick(rule("Mail")->picker().buttonFor(monitor.uuid), Qt::LeftButton);
    settle();
    ASSERT_EQ(story.published().rules.size(), 1U);
    EXPECT_EQ(story.published().rules.front().action,
              (AppRule::Action(AppRule::ForceDisplay{monitor.uuid, monitor.name})));
    EXPECT_EQ(rule("Mail")->choice().currentText().toStdString(), "Keep on " + monitor.name);
    rule("Mail")->placedLast().click();
    settle();
    EXPECT_EQ(story.published().rules.front().restoreLast, true);

    auto& flow = story.controller->rules();
    ASSERT_TRUE(flow.setRule({"org.example.mail", "Mail", AppRule::Ignore{}, {}}));
    settle();
    EXPECT_EQ(rule("Mail")->choice().currentText(), "Leave alone");
    EXPECT_FALSE(rule("Mail")->placedLast().isEnabled());
    rule("Mail")->choice().setCurrentIndex(0);
    Q_EMIT rule("Mail")->choice().activated(0);
    settle();
    EXPECT_TRUE(story.published().rules.empty());
    EXPECT_TRUE(bench->window()->notices().offersUndo());

    rules().startAdding("Nobody");
    EXPECT_EQ(rule("Nobody"), nullptr);
    story.workspace.install("org.example.notes", {.name = "Notes", .windows = {}});
    rules().startAdding("org.example.notes");
    ASSERT_NE(rule("Notes"), nullptr);
    EXPECT_FALSE(rule("Notes")->row().learned.empty());
    QTest::keyClicks(bench->window()->page()->findChild<QLineEdit*>(), "mai");
    EXPECT_EQ(rules().rows().size(), 1U);
}

TEST_F(RulesAndSettings, ASettingIsChangedInTheWindowTheFileAndByACommandInTurn) {
    open(WorkbenchTab::settings);
    auto& toggles = section<ToggleRows>(SettingsSection::restoring);
    Switch& sizes = *toggles.control("restoreSizes");
    EXPECT_TRUE(sizes.isChecked());
    sizes.click();
    settle();
    EXPECT_EQ(story.defaults.boolean("restoreSizes"), false);
    story.defaults.set("restoreSizes", true);
    settle();
    EXPECT_TRUE(sizes.isChecked());
    toggles.control("enabled")->click();
    settle();
    EXPECT_FALSE(story.controller->isEnabled());
    story.controller->setEnabled(true);
    settle();
    EXPECT_TRUE(toggles.control("enabled")->isChecked());
    story.defaults.failWrites();
    sizes.click();
    EXPECT_TRUE(sizes.isChecked()) << "it says that it could not be written and stays";
    // "Suggest scenes" is on while the setting that stops them is off.
    EXPECT_TRUE(
        section<ToggleRows>(SettingsSection::general).control("patternSuggestionsStopped")->isChecked());
}

TEST_F(RulesAndSettings, CrashReportsAreDeletedAndBroughtBackAndAReportForABugIsWritten) {
    const std::filesystem::path folder = services.settings.supportDirectory / "crashes";
    for (const char* const name : {"1766340000-signal.crash", "1766250000-exception.crash", "other.txt"}) {
        disk.put(folder / name, name);
    }
    open(WorkbenchTab::settings);
    QWidget& privacy = section<SettingsSectionView>(SettingsSection::privacy);
    const auto buttons = [&](const QString& text) {
        QList<QAbstractButton*> found;
        for (auto* const each : privacy.findChildren<QAbstractButton*>()) {
            if (each->accessibleName().startsWith(text) && each->isVisibleTo(&privacy)) {
                found.push_back(each);
            }
        }
        return found;
    };
    ASSERT_EQ(buttons("Delete the crash report").size(), 2);
    buttons("Delete the crash report").front()->click();
    settle();
    EXPECT_FALSE(disk.content(folder / "1766340000-signal.crash")) << "the newest is first";
    buttons("Delete all").front()->click();
    settle();
    EXPECT_TRUE(buttons("Delete").empty());
    EXPECT_TRUE(disk.content(folder / "other.txt"));
    EXPECT_TRUE(story.controller->deletions().putBack());
    EXPECT_TRUE(story.controller->deletions().putBack());
    settle();
    EXPECT_EQ(buttons("Delete the crash report").size(), 2);
    EXPECT_EQ(disk.content(folder / "1766340000-signal.crash"), "1766340000-signal.crash");

    for (const auto place : {QStandardPaths::HomeLocation, QStandardPaths::DocumentsLocation}) {
        std::ignore = disk.createDirectories(QStandardPaths::writableLocation(place).toStdString());
    }
    buttons("Export").front()->click();
    const auto all = disk.files();
    const auto report = std::ranges::find_if(
        all, [](const auto& file) { return file.filename().string().starts_with("vantrel-report-"); });
    ASSERT_NE(report, all.end());
    for (const char* const part : {"Displays\n", "1766250000-exception.crash", "Log\n"}) {
        EXPECT_THAT(*disk.content(*report), testing::HasSubstr(part));
    }
}

TEST_F(RulesAndSettings, ShortcutsAreRecordedRefusedWithTheOwnersNameAndReset) {
    open(WorkbenchTab::settings);
    auto& shortcuts = section<ShortcutsView>(SettingsSection::shortcuts);
    const HotKeySurface restore{HotKeySurface::Kind::fixedRestore, {}};
    const HotKeySurface save{HotKeySurface::Kind::fixedSave, {}};
    const auto record = [&](const HotKeySurface& surface) {
        shortcuts.recorder(surface)->startRecording();
        QTest::keyClick(shortcuts.recorder(surface), Qt::Key_2, Qt::MetaModifier);
        settle();
    };
    record(restore);
    EXPECT_FALSE(story.controller->restoreHotkeyIsDefault());
    record(save);
    EXPECT_TRUE(story.controller->saveHotkeyIsDefault());
    EXPECT_THAT(shortcuts.row(save)->problem().toStdString(), testing::HasSubstr("Already used by"));
    for (auto* const button : shortcuts.findChildren<QAbstractButton*>()) {
        if (button->accessibleName() == "Reset all to default") {
            button->click();
        }
    }
    settle();
    EXPECT_TRUE(story.controller->restoreHotkeyIsDefault());
    story.controller->armQuickSwitcherRecorder();
    settle();
    EXPECT_TRUE(shortcuts.recorder({HotKeySurface::Kind::quickSwitcher, {}})->isRecording());
}

TEST_F(RulesAndSettings, ATriggerIsAddedEditedSwitchedOffAndDeleted) {
    story.controller->scenes().saveCurrentAsScene("Work", {});
    settle();
    open(WorkbenchTab::settings);
    auto& triggers = section<TriggersView>(SettingsSection::triggers);
    triggers.newTime().setText("25:00");
    triggers.addButton().click();
    EXPECT_FALSE(triggers.problem().isEmpty());
    triggers.newTime().setText("0:30");
    QTest::keyClick(&triggers.newTime(), Qt::Key_Return);
    settle();
    ASSERT_EQ(triggers.lines().size(), 1U);
    QLineEdit& time = *triggers.lines().front().time;
    time.selectAll();
    QTest::keyClicks(&time, "1:0");
    story.controller->setEnabled(true);
    ASSERT_TRUE(story.controller->scenes().createEmptyScene("Other").isSaved());
    settle();
    EXPECT_EQ(time.text(), "1:0") << "half-typed text survives changes from elsewhere";
    QTest::keyClicks(&time, "5");
    QTest::keyClick(&time, Qt::Key_Return);
    settle();
    EXPECT_EQ(story.published().triggers.front().kind, (SceneTrigger::Kind(SceneTrigger::Schedule{1, 5})));
    EXPECT_EQ(story.published().nextFirings.size(), 1U);
    triggers.lines().front().isOn->click();
    settle();
    EXPECT_FALSE(story.published().triggers.front().enabled);
    ASSERT_TRUE(story.controller->triggers().deleteTrigger(story.published().triggers.front().id));
    settle();
    EXPECT_TRUE(triggers.lines().empty());
    EXPECT_TRUE(bench->window()->notices().offersUndo());
}

} // namespace

} // namespace vantrel
