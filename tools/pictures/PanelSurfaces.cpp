// The panel: a usual day, the first day, and everything that can go wrong.
#include "Vantrel/interface/panel/PanelWindow.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/StandInIcons.h"
#include "tools/pictures/Surface.h"

#include <QVBoxLayout>

namespace vantrel::pictures {

namespace {

using Context = PanelContent::Context;

constexpr Date now{std::chrono::sys_days(std::chrono::year(2026) / 11 / 24) + std::chrono::hours(9)};

ApplicationLooks& looks() {
    static StandInIcons icons;
    static ApplicationLooks looks(&icons);
    return looks;
}

Context usual() {
    Context context{.now = now};
    context.permissionTitle = "No window manager";
    context.permissionDetail =
        "Windows cannot be moved without one. Start your desktop session, then check again.";
    return context;
}

std::unique_ptr<PanelWindow> window(const PublishedState& state, const Context& context,
                                    PanelWindow::Kind kind = PanelWindow::Kind::popover) {
    PanelActions actions;
    actions.scenes.problemWithName = [](const std::string& name) {
        return name == "Write" ? PanelActions::Problem("That name is used by another scene.") : std::nullopt;
    };
    auto window = std::make_unique<PanelWindow>(looks(), actions, kind);
    window->view().show(PanelContent::of(state, context));
    window->fit();
    // The offscreen display is low.
    const auto fit = [panel = window.get(), kind] {
        const int edge = kind == PanelWindow::Kind::popover ? 2 : 0;
        panel->view().setScrolling(false);
        panel->setFixedSize(panel->view().QWidget::width() + edge, panel->view().fullHeight() + edge);
    };
    fit();
    window->view().onHeightChanged = fit;
    return window;
}

void addLastRestore(PublishedState& state, std::size_t restored, std::size_t failed) {
    auto& last = state.lastRestore.emplace();
    last.date = Date{now - std::chrono::minutes(2)};
    last.configID = state.configID;
    last.report.items.resize(restored + failed);
    for (std::size_t i = 0; i < restored; ++i) {
        RestoreReport::Move move;
        move.achieved = Rect{{100, 100}, {400, 300}};
        last.report.items[i].move = move;
    }
    for (std::size_t i = restored; i < restored + failed; ++i) {
        last.report.items[i].outcome.kind = RestoreReport::Kind::failed;
    }
}

PublishedState usualDay() {
    PublishedState state = SampleDesks::movedState();
    addLastRestore(state, 7, 0);
    auto& undo = state.undoSlot.emplace();
    undo.configID = state.configID;
    undo.reason = "scene Write";
    state.activePinned = true;
    return state;
}

PublishedState firstDay() {
    PublishedState state = SampleDesks::state();
    state.currentLayouts.clear();
    state.scenes.clear();
    state.lastAppliedSceneID.reset();
    state.phase = {Phase::Empty{}};
    auto windows = SampleDesks::everyday();
    windows.erase(windows.begin() + 1, windows.begin() + 3);
    windows.resize(windows.size() - 2);
    state.liveWindows = SampleDesks::live(windows);
    return state;
}

PublishedState broken() {
    PublishedState state = SampleDesks::state();
    state.hasPermission = false;
    state.phase = {Phase::NeedsPermission{}};
    state.entitlement.kind = Entitlement::Kind::trialOver;
    state.currentLayouts.resize(1);
    state.scenes.resize(2);
    addLastRestore(state, 6, 1);
    return state;
}

PublishedState crowded() {
    PublishedState state = usualDay();
    state.driftNudge = DriftNudgeInfo{"1", "Write", 4};
    state.patternSuggestion = PatternSuggestionInfo{state.configID, {}};
    state.latestAvailable = "1.2";
    state.entitlement.kind = Entitlement::Kind::trial;
    state.entitlement.trialDaysLeft = 5;
    state.fileIncidents = {{.file = "/home/x/.local/share/vantrel/scenes.json",
                            .kind = FileIncident::Kind::notWritten,
                            .reason = "No space left on device"}};
    state.calendarAccessNeeded = true;
    return state;
}

PublishedState longTexts() {
    PublishedState state = usualDay();
    for (Layout& layout : state.currentLayouts) {
        layout.name = "Besprechungszimmer im zweiten Obergeschoss links";
    }
    state.scenes[0].name = "Donaudampfschifffahrtskapitän";
    state.scenes[1].layout.windows.resize(60, state.scenes[1].layout.windows.front());
    state.undoSlot->reason = "scene Donaudampfschifffahrtskapitän";
    return state;
}

PublishedState off() {
    PublishedState state = SampleDesks::state();
    state.enabled = false;
    state.phase = {Phase::Off{}};
    return state;
}

Surface surface(const std::string& name, const PublishedState& state, const Context& context = usual()) {
    return {"panel-" + name, [=] { return window(state, context); }};
}

} // namespace

std::vector<Surface> panelSurfaces() {
    Context reports = usual();
    reports.crashReports = 2;
    reports.sessionNotes = {
        {"This is a Wayland session", "Only programs that use X11 can be seen and moved."}};
    reports.opensWithoutTray = true;
    std::vector<Surface> surfaces{
        surface("usual", usualDay()),       surface("first-day", firstDay()),
        surface("problems", broken()),      surface("crowded", crowded(), reports),
        surface("long-texts", longTexts()), surface("off", off()),
    };
    surfaces.push_back({"panel-row-hovered", [] {
                            auto shown = window(usualDay(), usual());
                            shown->view().sceneRows()[1]->setHighlighted(true);
                            return shown;
                        }});
    surfaces.push_back({"panel-low-screen", [] {
                            auto shown = window(usualDay(), usual());
                            shown->view().onHeightChanged = [] {};
                            shown->view().setScrolling(true);
                            shown->setFixedSize(shown->view().QWidget::width() + 2, 420);
                            return shown;
                        }});
    surfaces.push_back({"panel-recording", [] {
                            auto shown = window(usualDay(), usual());
                            auto* const row = shown->view().sceneRows()[3];
                            row->setHighlighted(true);
                            row->recorder().startRecording();
                            return shown;
                        }});
    surfaces.push_back(
        {"panel-window", [] { return window(usualDay(), usual(), PanelWindow::Kind::window); }});
    return surfaces;
}

} // namespace vantrel::pictures
