// The workbench: every tab on a usual day, on the first one, with too much of everything, and when things go
// wrong.
#include "tools/pictures/WorkbenchSurfaces.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/workbench/history/HistoryPage.h"
#include "Vantrel/interface/workbench/scenes/ScenesPage.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/StandInIcons.h"
#include "tools/pictures/Surface.h"

#include <QLineEdit>

#include <functional>

namespace vantrel::pictures {

namespace {

using std::chrono::minutes;

RestoreLog history() {
    RestoreLog log;
    RestoreLog::Entry entry;
    entry.date = workbenchNow - minutes(2);
    entry.reason = "scene";
    entry.sceneName = "Write";
    log.entries.push_back(entry);
    return log;
}

WorkbenchPage* scenesPage(QWidget* parent) {
    ScenesActions actions;
    actions.scenes.problemWithName = [](const std::string& name) {
        return name == "Write" ? SceneActions::Problem("That name is used by another scene.") : std::nullopt;
    };
    actions.addTime = [](const auto& /*id*/, const auto& /*time*/) {
        return SceneActions::Problem("A time needs an hour from 0 to 23 and a minute from 0 to 59.");
    };
    actions.context = [] { return ScenesContent::Context{.now = workbenchNow, .history = history()}; };
    return new ScenesPage(workbenchLooks(), actions, parent);
}

SceneTrigger trigger(const char* id, const SceneTrigger::Kind& kind, bool isEnabled = true) {
    SceneTrigger trigger;
    trigger.id = id;
    trigger.kind = kind;
    trigger.sceneID = "1";
    trigger.enabled = isEnabled;
    return trigger;
}

RestoreLog::Item item(const SampleDesks::Placed& window, RestoreLog::Outcome outcome,
                      std::optional<Rect> from = {}) {
    RestoreLog::Item item{.appName = window.app,
                          .bundleID = std::string("org.example.") + window.app,
                          .title = window.title,
                          .outcome = outcome,
                          .reason = {}};
    item.move = RestoreLog::Move{
        .pairedBy = "sameTitle", .from = from.value_or(window.frame), .target = window.frame, .achieved = {}};
    return item;
}

RestoreLog fullHistory() {
    using Outcome = RestoreLog::Outcome;
    const auto windows = SampleDesks::everyday();
    RestoreLog log;
    const auto add = [&](Date date, const char* reason, const char* scene,
                         std::vector<RestoreLog::Item> items) {
        log.entries.push_back(
            {.date = date,
             .reason = reason,
             .sceneName = scene != nullptr ? std::optional<std::string>(scene) : std::nullopt,
             .configID = SampleDesks::state().configID,
             .elapsed = 0.41,
             .items = std::move(items)});
    };
    auto failed = item(windows[5], Outcome::failed, Rect{{3300, 560}, {524, 444}});
    failed.reason = "the app did not answer";
    auto closed = item(windows[8], Outcome::skipped);
    closed.move.reset();
    add(workbenchNow - minutes(12), "Studio Display reconnected", nullptr,
        {item(windows[2], Outcome::restored, Rect{{3180, 1180}, {500, 200}}),
         item(windows[0], Outcome::restored, Rect{{3240, 1200}, {500, 200}}),
         item(windows[4], Outcome::retried, Rect{{3300, 1220}, {500, 200}}), failed, closed,
         item(windows[3], Outcome::restored), item(windows[6], Outcome::restored)});
    add(workbenchNow - minutes(24), "scene", "Write",
        {item(windows[2], Outcome::restored, Rect{{100, 100}, {640, 480}})});
    add(workbenchNow - minutes(26), "restore now (menu)", nullptr, {item(windows[3], Outcome::restored)});
    add(workbenchNow - std::chrono::hours(15), "stash", nullptr, {item(windows[3], Outcome::restored)});
    add(workbenchNow - std::chrono::hours(19), "trigger calendar event", "Meeting",
        {item(windows[1], Outcome::retried, Rect{{0, 0}, {400, 300}})});
    add(workbenchNow - std::chrono::hours(87), "undo (scene)", nullptr,
        {item(windows[1], Outcome::restored)});
    return log;
}

std::vector<AppReliability> reliability() {
    const auto app = [](const char* name, std::int64_t restored, std::int64_t retried, std::int64_t failed) {
        AppReliability known;
        known.bundleID = std::string("org.example.") + name;
        known.appName = name;
        known.restoredCount = restored;
        known.retriedCount = retried;
        known.failedCount = failed;
        return known;
    };
    auto music = app("Music", 3, 1, 4);
    music.lastFailureReason = "the app did not answer";
    return {music, app("Calendar", 112, 0, 3), app("Code", 388, 2, 0), app("Firefox", 412, 0, 0),
            app("Meet", 0, 0, 0)};
}

WorkbenchPage* historyPage(QWidget* parent, bool isEmpty, bool showsApps) {
    HistoryActions actions;
    actions.context = [=] {
        HistoryContent::Context context{.now = workbenchNow};
        if (!isEmpty) {
            const PublishedState state = SampleDesks::state();
            context.log = fullHistory();
            context.apps = reliability();
            context.desks[state.configID] = {state.configName, state.displays};
        }
        return context;
    };
    auto* const page = new HistoryPage(workbenchLooks(), actions, parent);
    page->showList(showsApps ? HistoryContent::List::apps : HistoryContent::List::restores);
    return page;
}

PublishedState usual() {
    PublishedState state = SampleDesks::movedState();
    for (Scene& scene : state.scenes) {
        scene.createdAt = workbenchNow - std::chrono::days(21);
    }
    for (std::size_t i = 4; i < state.scenes.size(); ++i) {
        state.scenes[i].layout.name = i < 6 ? "Home office" : "Built-in";
        state.scenes[i].configID = i < 6 ? "home" : "travel";
    }
    Scene& write = state.scenes[0];
    write.layout.windows[1].isGhost = true;
    write.opensMissingApps = true;
    write.wallpaper.emplace();
    for (const DisplayInfo& display : write.layout.displays) {
        write.wallpaper->perDisplay[display.uuid] = "/pictures/Hills.jpg";
    }
    for (int day = 0; day < 30; ++day) {
        state.receipts.entries.push_back({workbenchNow - std::chrono::days(day), (day * 7 + 3) % 11});
    }
    state.usage.restores = 12;
    state.usage.sceneSwitches = 3;
    state.usage.windowsVantrel = 1240;
    auto& undo = state.undoSlot.emplace();
    undo.configID = state.configID;
    undo.reason = "Studio Display reconnected";
    state.triggers = {trigger("t1", SceneTrigger::Schedule{9, 0})};
    return state;
}

PublishedState empty() {
    PublishedState state = usual();
    state.scenes.clear();
    state.triggers.clear();
    state.lastAppliedSceneID.reset();
    return state;
}

PublishedState crowded() {
    PublishedState state = usual();
    Scene& first = state.scenes[0];
    first.name = "Donaudampfschifffahrtskapitän";
    const auto windows = first.layout.windows;
    while (first.layout.windows.size() < 60) {
        WindowRecord window = windows[first.layout.windows.size() % windows.size()];
        window.frame.origin.x += static_cast<double>(first.layout.windows.size()) * 20;
        first.layout.windows.push_back(window);
    }
    state.configName = "Besprechungszimmer im zweiten Obergeschoss links";
    for (int i = 0; state.scenes.size() < 12; ++i) {
        Scene more = state.scenes[static_cast<std::size_t>(i)];
        more.id = "more" + std::to_string(i);
        more.name += " auf der anderen Seite";
        state.scenes.push_back(more);
    }
    state.triggers.push_back(trigger("t2", SceneTrigger::FocusMode{"Do Not Disturb"}, false));
    state.triggers.push_back(trigger("t3", SceneTrigger::CalendarVideoEvent{}));
    return state;
}

PublishedState broken() {
    PublishedState state = usual();
    state.hasPermission = false;
    state.phase = {Phase::NeedsPermission{}};
    state.currentLayouts.clear();
    state.scenes[0].pinned = true;
    state.scenes[0].wallpaper->perDisplay.erase(state.scenes[0].layout.displays[0].uuid);
    state.hotKeys.push_back({.taken = {.surface = HotKeySurface::scene("1"),
                                       .combo = *state.scenes[0].hotkey(),
                                       .label = "Write"},
                             .state = HotKeyStatus::State::refused});
    return state;
}

using Touch = std::function<void(WorkbenchWindow&)>;

Surface surface(
    const std::string& name, WorkbenchTab tab, const PublishedState& state,
    const Touch& touch = [](auto&) {}) {
    return {"workbench-" + name, [=] {
                auto window = workbench(state, tab);
                touch(*window);
                return window;
            }};
}

// Types into the field of this accessible name.
void type(const WorkbenchWindow& window, const char* field, const char* text) {
    for (auto* const each : window.findChildren<QLineEdit*>()) {
        if (each->accessibleName() == qtr(field)) {
            each->setText(text);
        }
    }
}

} // namespace

ApplicationLooks& workbenchLooks() {
    static StandInIcons icons;
    static ApplicationLooks looks(&icons);
    return looks;
}

std::unique_ptr<WorkbenchWindow> workbench(const PublishedState& state, WorkbenchTab tab) {
    auto window = std::make_unique<WorkbenchWindow>();
    window->add(WorkbenchTab::scenes, scenesPage);
    const bool isEmpty = state.scenes.empty();
    const bool showsApps = !state.hasPermission;
    window->add(WorkbenchTab::history,
                [=](QWidget* parent) { return historyPage(parent, isEmpty, showsApps); });
    window->show(state, {});
    window->choose(tab);
    window->resize(window->usualSize());
    return window;
}

std::vector<Surface> workbenchSurfaces() {
    constexpr auto scenes = WorkbenchTab::scenes;
    constexpr auto history = WorkbenchTab::history;
    return {
        surface("scenes", scenes, usual()),
        surface("scenes-empty", scenes, empty()),
        surface("scenes-crowded", scenes, crowded(),
                [](WorkbenchWindow& window) { window.resize(window.usualSize() * 0.78); }),
        surface("scenes-broken", scenes, broken(),
                [](WorkbenchWindow& window) { type(window, "Save this desk as a scene", "Write"); }),
        surface("scenes-searched", scenes, usual(),
                [](WorkbenchWindow& window) { type(window, "Search scenes", "nothing like it"); }),
        surface("scenes-deleted", scenes, usual(),
                [](WorkbenchWindow& window) {
                    window.notices().offerUndo(qtr("The scene “Monitor” was deleted."), [] {});
                }),
        surface("history", history, usual()),
        surface("history-empty", history, empty()),
        surface("history-apps", history, broken()),
        surface("history-narrow", history, usual(),
                [](WorkbenchWindow& window) { window.resize(window.usualSize() * 0.78); }),
    };
}

} // namespace vantrel::pictures
