// The workbench: every tab on a usual day, on the first one, with too much of everything, and when things go
// wrong.
#include "tools/pictures/WorkbenchSurfaces.h"
#include "Vantrel/interface/Text.h"
#include "Vantrel/interface/workbench/desks/DesksPage.h"
#include "Vantrel/interface/workbench/history/HistoryPage.h"
#include "Vantrel/interface/workbench/scenes/ScenesPage.h"
#include "VantrelCore/windows/VisibleWindows.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/SampleWallpapers.h"
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

WorkbenchPage* scenesPage(QWidget* parent, SampleWallpapers wallpapers) {
    ScenesActions actions;
    actions.wallpapers = sampleWallpapers(wallpapers);
    actions.scenes.problemWithName = [](const std::string& name) {
        return name == "Write" ? SceneActions::Problem("That name is used by another scene.") : std::nullopt;
    };
    actions.addTime = [](const auto& /*id*/, const auto& /*time*/) {
        return SceneActions::Problem("A time needs an hour from 0 to 23 and a minute from 0 to 59.");
    };
    actions.context = [] { return ScenesContent::Context{.now = workbenchNow, .history = history()}; };
    return new ScenesPage(workbenchLooks(), actions, parent);
}

Layout layoutOf(const char* configID, const char* desk, const char* name,
                const std::vector<DisplayInfo>& displays, const std::vector<SampleDesks::Placed>& windows) {
    Layout layout = SampleDesks::layout(name, displays, windows);
    layout.configID = configID;
    layout.name = desk;
    return layout;
}

std::vector<Layout> everyLayout(const PublishedState& state) {
    const auto all = SampleDesks::everyday();
    const std::vector laptop{SampleDesks::display("Built-in Display", {{0, 0}, {1512, 982}}, true)};
    const std::vector room{SampleDesks::display("Projector", {{0, 0}, {1920, 1080}}),
                           SampleDesks::display("Built-in Display", {{200, 1080}, {1512, 982}}, true)};
    const std::vector home{SampleDesks::display("Left", {{0, 0}, {2560, 1440}}),
                           SampleDesks::display("Right", {{2560, -200}, {1200, 1920}})};
    std::vector<Layout> layouts = state.currentLayouts;
    for (Layout& layout : layouts) {
        layout.name = state.configName;
    }
    layouts.push_back(layoutOf("home", "Home office", "Default", home, {all[2], all[3], all[0]}));
    layouts.push_back(
        layoutOf("travel", "Built-in", "Default", laptop,
                 {{"Mail", "Inbox", {{500, 200}, {800, 600}}}, {"Firefox", "", {{40, 80}, {900, 700}}}}));
    layouts.push_back(
        layoutOf("room", "Meeting room", "Default", room, {{"Documents", "", {{300, 100}, {1200, 860}}}}));
    return layouts;
}

// As many desks as nobody has.
std::vector<Layout> manyLayouts(const PublishedState& state) {
    std::vector<Layout> layouts = everyLayout(state);
    const auto windows = layouts.front().windows;
    while (layouts.size() < 101) {
        Layout more = layouts[layouts.size() % 4];
        more.configID = "many" + std::to_string(layouts.size());
        more.name = "Besprechungszimmer im Obergeschoss " + std::to_string(layouts.size());
        while (more.windows.size() < 60) {
            WindowRecord window = windows[more.windows.size() % windows.size()];
            window.frame.origin.x += static_cast<double>(more.windows.size());
            more.windows.push_back(window);
        }
        layouts.push_back(more);
    }
    return layouts;
}

void addDesks(PublishedState& state, const std::vector<Layout>& layouts) {
    state.desks = RememberedDesks::of(
        {.layouts = layouts,
         .stashes = state.stashes,
         .log = {},
         .activeLayoutName =
             [](const auto& configID) {
                 return std::string(configID == SampleDesks::state().configID ? "Everyday" : "Default");
             }},
        {.configID = state.configID, .name = state.configName, .displays = state.displays});
    for (RememberedDesk& desk : state.desks) {
        for (auto& layout : desk.layouts) {
            layout.learned = workbenchNow - std::chrono::seconds(40);
        }
        desk.lastSeen = workbenchNow - std::chrono::hours(50);
    }
}

WorkbenchPage* desksPage(QWidget* parent, const PublishedState& state) {
    DesksActions actions;
    actions.now = [] { return workbenchNow; };
    actions.layouts = [&state] { return state.desks.size() > 10 ? manyLayouts(state) : everyLayout(state); };
    actions.preview = [&state](const auto& /*desk*/, const auto& /*layout*/,
                               const DesksActions::PreviewDone& done) {
        if (!state.hasPermission) {
            done(std::unexpected("The permission to read and move windows is missing."));
            return;
        }
        const auto live = VisibleWindows::every({.apps = {}, .windows = *state.liveWindows}, state.displays);
        std::set<std::string> running;
        for (const LiveWindow& window : live) {
            running.insert(window.record.bundleID);
        }
        done(RestorePreviews::of(state.currentLayouts.front(), {}, {live, running},
                                 RestoreEngine::Sizes::restore));
    };
    return new DesksPage(workbenchLooks(), actions, parent);
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
    write.wallpaper->perDisplay[write.layout.displays[0].uuid] = "/pictures/Lake.jpg";
    write.wallpaper->perDisplay[write.layout.displays[1].uuid] = "/pictures/Hills.jpg";
    for (int day = 0; day < 30; ++day) {
        state.receipts.entries.push_back({workbenchNow - std::chrono::days(day), (day * 7 + 3) % 11});
    }
    state.usage.restores = 12;
    state.usage.sceneSwitches = 3;
    state.usage.windowsVantrel = 1240;
    Stash stash;
    stash.id = "stash";
    stash.createdAt = workbenchNow - std::chrono::hours(15);
    stash.configID = state.configID;
    stash.windowCount = 11;
    state.stashes = {stash};
    addDesks(state, everyLayout(state));
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
    state.stashes.clear();
    state.currentLayouts.clear();
    addDesks(state, {});
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
    addDesks(state, manyLayouts(state));
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
    state.scenes[0].wallpaper->perDisplay[state.scenes[0].layout.displays[1].uuid] = "/pictures/Harbour.jpg";
    state.hotKeys.push_back({.taken = {.surface = HotKeySurface::scene("1"),
                                       .combo = *state.scenes[0].hotkey(),
                                       .label = "Write"},
                             .state = HotKeyStatus::State::refused});
    return state;
}

// Nothing was ever chosen, and the system has no pictures.
PublishedState bare() {
    PublishedState state = usual();
    state.scenes[0].wallpaper.reset();
    return state;
}

void openWallpapers(WorkbenchWindow& window) {
    dynamic_cast<ScenesPage&>(*window.page()).openWallpaperPicker();
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
    const auto wallpapers = state.scenes.size() > 10                             ? SampleWallpapers::many
                            : !state.scenes.empty() && state.scenes[0].wallpaper ? SampleWallpapers::usual
                                                                                 : SampleWallpapers::none;
    window->add(WorkbenchTab::scenes, [=](QWidget* parent) { return scenesPage(parent, wallpapers); });
    window->add(WorkbenchTab::desks, [&state](QWidget* parent) { return desksPage(parent, state); });
    const bool isEmpty = state.scenes.empty();
    const bool showsApps = !state.hasPermission;
    window->add(WorkbenchTab::history,
                [=](QWidget* parent) { return historyPage(parent, isEmpty, showsApps); });
    window->add(WorkbenchTab::rules, rulesPage);
    window->add(WorkbenchTab::settings, settingsPage);
    window->show(state, {});
    window->choose(tab);
    window->resize(window->usualSize());
    return window;
}

std::vector<Surface> workbenchSurfaces() {
    constexpr auto scenes = WorkbenchTab::scenes;
    constexpr auto desks = WorkbenchTab::desks;
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
        surface("wallpapers", scenes, usual(), openWallpapers),
        surface("wallpapers-none", scenes, bare(), openWallpapers),
        surface("wallpapers-many", scenes, crowded(),
                [](WorkbenchWindow& window) {
                    window.resize(window.usualSize() * 0.78);
                    openWallpapers(window);
                }),
        surface("wallpapers-gone", scenes, broken(), openWallpapers),
        surface("desks", desks, usual()),
        surface("desks-empty", desks, empty()),
        surface("desks-crowded", desks, crowded()),
        surface("desks-broken", desks, broken(),
                [](WorkbenchWindow& window) { window.resize(window.usualSize() * 0.78); }),
        surface("desks-absent", desks, usual(),
                [](WorkbenchWindow& window) {
                    auto& page = dynamic_cast<DesksPage&>(*window.page());
                    page.cards().choose("home");
                    page.cards().onChosen("home");
                }),
        surface("history", history, usual()),
        surface("history-empty", history, empty()),
        surface("history-apps", history, broken()),
        surface("history-narrow", history, usual(),
                [](WorkbenchWindow& window) { window.resize(window.usualSize() * 0.78); }),
    };
}

} // namespace vantrel::pictures
