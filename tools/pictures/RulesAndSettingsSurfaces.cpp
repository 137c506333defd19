// The workbench's tabs Rules and Settings, with every section.
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/workbench/rules/RulesPage.h"
#include "Vantrel/interface/workbench/settings/SettingsPage.h"
#include "Vantrel/interface/workbench/settings/ShortcutsView.h"
#include "Vantrel/interface/workbench/settings/TriggersView.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/Surface.h"
#include "tools/pictures/WorkbenchSurfaces.h"

#include <QLineEdit>

#include <functional>
#include <utility>

namespace vantrel::pictures {

namespace {

AppFacts app(const std::string& name, std::int64_t putBack, std::int64_t failed = 0,
             AppSizeBehavior::Classification sizes = AppSizeBehavior::Flexible{}) {
    AppFacts facts{.bundleID = "org.example." + name, .appName = name, .sizes = sizes};
    facts.reliability = AppReliability{.bundleID = facts.bundleID,
                                       .appName = name,
                                       .restoredCount = putBack,
                                       .failedCount = failed,
                                       .lastFailureReason = {},
                                       .lastSeen = {}};
    return facts;
}

std::vector<AppFacts> apps() {
    return {app("Calendar", 112, 3), app("Chat", 204, 0, AppSizeBehavior::MinClamped{{480, 320}}),
            app("Code", 388),        app("Drawing", 41),
            app("Files", 97),        app("Firefox", 412),
            app("Meet", 0),          app("Music", 180, 0, AppSizeBehavior::FixedSize{{340, 500}}),
            app("Terminal", 366, 2)};
}

PublishedState rules() {
    PublishedState state = SampleDesks::state();
    const auto keep = [&](const char* name, std::size_t display) {
        return AppRule{std::string("org.example.") + name,
                       name,
                       AppRule::ForceDisplay{state.displays[display].uuid, state.displays[display].name},
                       {}};
    };
    state.rules = {keep("Chat", 1), keep("Drawing", 0), keep("Music", 1)};
    state.rules.push_back({"org.example.Meet", "Meet", AppRule::Ignore{}, {}});
    state.rules.push_back({"org.example.Code", "Code", AppRule::ForceDisplay{}, true});
    state.rules.push_back({"org.example.Files", "Files", AppRule::ForceDisplay{"gone", "Projector"}, {}});
    return state;
}

PublishedState withSettings() {
    PublishedState state = SampleDesks::state();
    for (const char* const on : {"enabled", "autoRestore", "restoreSizes", "placeNewAppsEnabled",
                                 "quietNudgesEnabled", "showHUD", "showPanelWithoutTray"}) {
        state.preferences[on] = true;
    }
    for (const char* const off : {"hideOthersOnSceneSwitch", "patternSuggestionsStopped", "launchAtLogin"}) {
        state.preferences[off] = false;
    }
    state.preferences["settleDelay"] = 1.5;
    state.hotKeys[1].state = HotKeyStatus::State::refused;
    state.hotKeys[1].taken.combo = {1, 2816};
    state.version = "1.2";
    state.latestAvailable = "1.3";
    state.entitlement = {.kind = Entitlement::Kind::trial, .reason = "The trial ends in 5 days."};
    const auto add = [&](const char* id, const SceneTrigger::Kind& kind, const char* scene, bool isOn) {
        SceneTrigger trigger;
        trigger.id = id;
        trigger.kind = kind;
        trigger.sceneID = scene;
        trigger.enabled = isOn;
        state.triggers.push_back(trigger);
    };
    add("morning", SceneTrigger::Schedule{9, 0}, "1", true);
    add("call", SceneTrigger::CalendarVideoEvent{}, "3", true);
    add("quiet", SceneTrigger::FocusMode{"Do Not Disturb"}, "4", false);
    state.nextFirings["morning"] = workbenchNow;
    state.calendarAccessNeeded = true;
    return state;
}

// Two monitors of one kind, and a remembered desk that this one may be.
PublishedState twins() {
    PublishedState state = withSettings();
    DisplayInfo second = state.displays.front();
    second.uuid = "second";
    second.frame.origin.x -= second.frame.width();
    state.displays.insert(state.displays.begin(), second);
    state.sameDeskOffer =
        SameDesk::Remembered{.configID = "other", .name = "Home office", .isCertain = false};
    state.triggers.clear();
    state.scenes.clear();
    state.hotKeys.resize(1);
    state.entitlement = {.kind = Entitlement::Kind::licensed, .reason = "Licensed to Ada."};
    return state;
}

Surface surface(
    const std::string& name, WorkbenchTab tab, const PublishedState& state,
    const std::function<void(WorkbenchWindow&)>& touch = [](WorkbenchWindow&) {}) {
    return {"workbench-" + name, [=] {
                // As long as the window, which points to it.
                static std::vector<std::unique_ptr<PublishedState>> shown;
                const auto& kept = shown.emplace_back(std::make_unique<PublishedState>(state));
                auto window = workbench(*kept, tab);
                touch(*window);
                return window;
            }};
}

SettingsPage& settings(WorkbenchWindow& window, SettingsSection section) {
    auto& page = dynamic_cast<SettingsPage&>(*window.page());
    page.choose(section);
    return page;
}

} // namespace

WorkbenchPage* rulesPage(QWidget* parent) {
    RulesActions actions;
    actions.facts = apps;
    actions.find = [](const std::string& called) {
        return std::unexpected("No app is called \"" + called + "\".");
    };
    return new RulesPage(workbenchLooks(), actions, parent);
}

WorkbenchPage* settingsPage(QWidget* parent) {
    SettingsActions actions;
    actions.context = [] {
        return SettingsContent::Context{
            .dateText = [](Date) { return std::string("tomorrow at 9:00 AM"); },
            .hasEffect = [](std::string_view key) { return key != "showDockIcon"; }};
    };
    actions.addTrigger = [](const auto&, const auto&) { return SettingsActions::Problem(); };
    actions.crashReports = [] {
        return std::vector<SettingsActions::CrashReport>{{"1766340000-signal.crash", "Today 9:12 AM"},
                                                         {"1766250000-exception.crash", "Yesterday 6:40 PM"}};
    };
    actions.openCrashReport = [](const auto&) {};
    actions.whatChanged = [] { return std::optional<std::string>("Version 1.2\n\n- Scenes can be drawn."); };
    actions.sendCrashReports = [](const auto&) {};
    for (auto* const each :
         {&actions.exportReport, &actions.openLog, &actions.openFolder, &actions.openSettingsFile,
          &actions.purchase, &actions.checkForUpdates, &actions.showIntroduction}) {
        *each = [] {};
    }
    return new SettingsPage(actions, parent);
}

std::vector<Surface> rulesAndSettingsSurfaces() {
    constexpr auto rulesTab = WorkbenchTab::rules;
    constexpr auto settingsTab = WorkbenchTab::settings;
    std::vector<Surface> surfaces{
        surface("rules", rulesTab, rules()),
        surface("rules-adding", rulesTab, rules(),
                [](WorkbenchWindow& window) {
                    auto& page = dynamic_cast<RulesPage&>(*window.page());
                    page.startAdding("Letters");
                    window.resize(window.usualSize() * 0.78);
                }),
        surface("rules-search-fails", rulesTab, rules(),
                [](WorkbenchWindow& window) {
                    for (auto* const field : window.page()->findChildren<QLineEdit*>()) {
                        field->setText("Letters");
                    }
                }),
    };
    for (const auto& entry : SettingsSections::all()) {
        surfaces.push_back(
            surface(std::string("settings-") + entry.name, settingsTab, withSettings(),
                    [section = entry.section](WorkbenchWindow& window) { settings(window, section); }));
    }
    for (const auto section :
         {SettingsSection::displays, SettingsSection::triggers, SettingsSection::license}) {
        surfaces.push_back(surface(std::string("settings-other-") + SettingsSections::entryOf(section).name,
                                   settingsTab, twins(), [section](WorkbenchWindow& window) {
                                       settings(window, section);
                                       window.resize(window.usualSize() * 0.78);
                                   }));
    }
    return surfaces;
}

} // namespace vantrel::pictures
